#include "editor/JavaScriptEscape.h"

#include <QtTest>

class JavaScriptEscapeTest : public QObject
{
    Q_OBJECT

private slots:
    void escapesEachSpecialCharacterOnce_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("escaped");
        QTest::newRow("backslash before an n stays two characters")
            << QStringLiteral("a\\n") << QStringLiteral("a\\\\n");
        QTest::newRow("quotes") << QStringLiteral("\"b'") << QStringLiteral("\\\"b\\'");
        QTest::newRow("line feed and carriage return both read as a line break")
            << QStringLiteral("x\ny\rz") << QStringLiteral("x\\ny\\nz");
        QTest::newRow("CR LF is two line breaks") << QStringLiteral("a\r\nb") << QStringLiteral("a\\n\\nb");
        QTest::newRow("escapes at both ends") << QStringLiteral("'\\\"") << QStringLiteral("\\'\\\\\\\"");
        QTest::newRow("other characters untouched")
            << QStringLiteral("plain \u00e9\t\u2028 \U0001F600") << QStringLiteral("plain \u00e9\t\u2028 \U0001F600");
        QTest::newRow("empty") << QString() << QString();
    }

    void escapesEachSpecialCharacterOnce()
    {
        QFETCH(QString, value);
        QFETCH(QString, escaped);
        QCOMPARE(escapedForJavascript(value), escaped);
    }
};

QTEST_GUILESS_MAIN(JavaScriptEscapeTest)
#include "tst_JavaScriptEscape.moc"
