#include "editor/JavaScriptEscape.h"

#include <QtTest>

class JavaScriptEscapeTest : public QObject
{
    Q_OBJECT

private slots:
    void escapesEachSpecialCharacterOnce()
    {
        QCOMPARE(escapedForJavascript(QStringLiteral("a\\n\"b'\n\r")),
                 QStringLiteral("a\\\\n\\\"b\\'\\n\\r"));
        QCOMPARE(escapedForJavascript(QStringLiteral("plain \u00e9")), QStringLiteral("plain \u00e9"));
    }
};

QTEST_GUILESS_MAIN(JavaScriptEscapeTest)
#include "tst_JavaScriptEscape.moc"
