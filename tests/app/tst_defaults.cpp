#include "app/LWDefaults.h"
#include "app/LWDefaultsController.h"
#include "app/LWDefaultsValues.h"
#include "app/LWSettingsFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const QStringList awkwardPaths{
    QStringLiteral("/tmp/a,b.txt"),          QStringLiteral("/tmp/\"quoted\" 'name'"),
    QStringLiteral("C:\\back\\slash\\"),     QStringLiteral("/tmp/line\nbreak\r\ttab"),
    QStringLiteral("/home/zoë/日本語.txt"),  QStringLiteral("@at start"),
    QStringLiteral("  spaced  "),            QStringLiteral("/semi;colon=equals#hash"),
    QString()};

}

class TestDefaults : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QSettings(LWSettingsFile::path(), QSettings::IniFormat).clear();
        defaults = std::make_unique<LWDefaults>();
        controller = std::make_unique<LWDefaultsController>(*defaults);
    }

    void freshStoreReadsRegisteredValue_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("expected");
        const QStringList on{"LW_Sidebar", "LW_TabBar", "LW_StatusBar", "LW_Panel", "LW_Gutter",
                             "LW_IndentationGuides", "LW_WordWrap", "LW_WSFoldersOnTop", "LW_WSDoFilter",
                             "WebKitDeveloperExtras"};
        const QStringList off{"LW_PrintMargin", "LW_Invisibles", "LW_SoftTabs", "LW_Search_Regex",
                              "LW_Search_Case", "LW_Search_Whole_Word", "LW_ShellInstalled"};
        for (const QString &key : on)
            QTest::newRow(qPrintable(key)) << key << QVariant(true);
        for (const QString &key : off)
            QTest::newRow(qPrintable(key)) << key << QVariant(false);
        const QList<std::pair<const char *, QVariant>> others{
            {"LW_TabSize", 4}, {"LW_WrapLimit", 0}, {"LW_FontSize", 14}, {"LW_DoAtStartup", 1},
            {"LW_DoOnQuit", 0}, {"LW_DefaultEncoding", 4}, {"LW_FontName", "Menlo"},
            {"LW_Theme", "Classic (Larkwood)"}, {"LW_Search_Scope", "Document"},
            {"LW_DefaultSpecForNew", "Plain Text"}, {"LW_WSDoFilterRegex", ".DS_Store"},
            {"LW_User_Extensions", QVariantMap()}, {"LW_PreviouslyOpened", QStringList()}};
        for (const auto &[key, value] : others)
            QTest::newRow(key) << QString::fromLatin1(key) << value;
    }

    void freshStoreReadsRegisteredValue()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, expected);
        QVERIFY(defaults->dictionaryRepresentation().isEmpty());
        switch (expected.typeId()) {
        case QMetaType::Bool: QCOMPARE(defaults->boolForKey(key), expected.toBool()); break;
        case QMetaType::Int: QCOMPARE(defaults->integerForKey(key), expected.toInt()); break;
        case QMetaType::QString: QCOMPARE(defaults->stringForKey(key), expected.toString()); break;
        default: QCOMPARE(defaults->objectForKey(key), expected);
        }
    }

    void storedNumbersReadAsBooleans()
    {
        defaults->setBool("LW_Sidebar", false);
        defaults->setBool("LW_PrintMargin", true);
        QCOMPARE(defaults->objectForKey("LW_PrintMargin").toInt(), 1);
        QVERIFY(!defaults->boolForKey("LW_Sidebar"));
        QVERIFY(defaults->boolForKey("LW_PrintMargin"));
        defaults->setString("LW_Gutter", "2");
        QVERIFY(defaults->boolForKey("LW_Gutter"));
        defaults->setString("LW_Gutter", "false");
        QVERIFY(!defaults->boolForKey("LW_Gutter"));
        QCOMPARE(LWDefaultsValues::toInteger(QStringLiteral("junk")), 0);
    }

    void fontNameFallsBackToMenlo()
    {
        QCOMPARE(defaults->fontName(), QStringLiteral("Menlo"));
        defaults->setString("LW_FontName", QString());
        QCOMPARE(defaults->fontName(), QStringLiteral("Menlo"));
        QCOMPARE(LWDefaults().fontName(), QStringLiteral("Menlo"));
        defaults->setString("LW_FontName", "DejaVu Sans Mono");
        QCOMPARE(defaults->fontName(), QStringLiteral("DejaVu Sans Mono"));
    }

    void resetRestoresRegisteredValues()
    {
        defaults->setObject("LW_PreviouslyOpened", QStringList{"/a", "/b"});
        defaults->setInteger("LW_DoAtStartup", 0);
        defaults->setString("LW_Unregistered", "x");
        controller->resetDefaults();
        QVERIFY(defaults->dictionaryRepresentation().isEmpty());
        QVERIFY(defaults->arrayForKey("LW_PreviouslyOpened").isEmpty());
        QCOMPARE(defaults->integerForKey("LW_DoAtStartup"), 1);
        QVERIFY(!defaults->objectForKey("LW_Unregistered").isValid());
    }

    void changeSignalFiresOncePerRealChange()
    {
        QSignalSpy spy(defaults.get(), &LWDefaults::valueChanged);
        defaults->setBool("LW_Sidebar", true);
        defaults->setInteger("LW_TabSize", 4);
        QCOMPARE(spy.count(), 0);
        defaults->setBool("LW_Sidebar", false);
        defaults->setBool("LW_Sidebar", false);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.takeFirst().first().toString(), QStringLiteral("LW_Sidebar"));
        defaults->setObject("LW_PreviouslyOpened", QStringList{"/a", "/b"});
        defaults->setObject("LW_PreviouslyOpened", QStringList{"/a", "/b"});
        defaults->setObject("LW_PreviouslyOpened", QStringList{"/a", "/c"});
        QCOMPARE(spy.count(), 2);
        defaults->removeObjectForKey("LW_Sidebar");
        defaults->removeObjectForKey("LW_Sidebar");
        defaults->removeObjectForKey("LW_Missing");
        QCOMPARE(spy.count(), 3);
        QCOMPARE(spy.last().first().toString(), QStringLiteral("LW_Sidebar"));
    }

    void valuesSurviveTheIniFile_data()
    {
        QTest::addColumn<QStringList>("opened");
        QTest::newRow("awkward paths") << awkwardPaths;
        QTest::newRow("one path") << QStringList{"/tmp/only, one"};
        QTest::newRow("none") << QStringList();
    }

    void valuesSurviveTheIniFile()
    {
        QFETCH(QStringList, opened);
        QVariantMap extensions;
        for (int i = 0; i < awkwardPaths.size(); ++i)
            extensions.insert(awkwardPaths.at(i) + QStringLiteral("key"), awkwardPaths.at(i));
        defaults->setObject("LW_PreviouslyOpened", opened);
        defaults->setObject("LW_User_Extensions", extensions);
        defaults->setBool("LW_Panel", false);
        defaults->synchronize();

        // A copy of the file forces a fresh parse rather than the in-process cache.
        QTemporaryDir scratch;
        const QString copy = scratch.filePath("copy.conf");
        QVERIFY(QFile::copy(LWSettingsFile::path(), copy));
        QSettings reread(copy, QSettings::IniFormat);
        // Lists are the store's arrays, so an empty list is a list too.
        QStringList stored;
        const int size = reread.beginReadArray("LW_PreviouslyOpened");
        for (int index = 0; index < size; ++index) {
            reread.setArrayIndex(index);
            stored << reread.value("item").toString();
        }
        reread.endArray();
        QVERIFY(reread.contains("LW_PreviouslyOpened/size"));
        QCOMPARE(stored, opened);
        QCOMPARE(LWDefaultsValues::toMap(reread.value("LW_User_Extensions")), extensions);
        QVERIFY(!LWDefaultsValues::toBool(reread.value("LW_Panel")));
        QCOMPARE(LWDefaults().arrayForKey("LW_PreviouslyOpened"), opened);
    }

    void olderSettingsFileIsTakenOverOnce()
    {
        defaults.reset();
        QFile::remove(LWSettingsFile::path());
        const QString older = QFileInfo(LWSettingsFile::path()).dir().filePath("Larkwood.ini");
        writeFile(older, "[General]\nLW_TabSize=8\nLW_Sidebar=0\n");
        LWDefaults migrated;
        LWDefaultsController registering(migrated);
        QCOMPARE(migrated.integerForKey("LW_TabSize"), 8);
        QVERIFY(!migrated.boolForKey("LW_Sidebar"));
        QVERIFY(!QFile::exists(older));
        QVERIFY(QFile::exists(LWSettingsFile::path()));
    }

    // Garbage bytes and values of the wrong kind: every key reads its
    // registered default, the file is copied aside, and writing still works.
    void damagedFileReadsRegisteredDefaults()
    {
        defaults.reset();
        QByteArray garbage("\xff\xfe\x00[\x01General\n==\n\x80\x81");
        garbage += "\n[General]\nLW_TabSize=abc\nLW_Sidebar=maybe\nLW_FontSize=\nLW_Theme=a, b, c\n"
                   "LW_User_Extensions=@Variant(\\0\\xff\\x1)\nLW_PreviouslyOpened=@Invalid()\nLW_WrapLimit=80\n";
        writeFile(LWSettingsFile::path(), garbage);
        LWDefaults damaged;
        LWDefaultsController registering(damaged);
        QCOMPARE(damaged.integerForKey("LW_TabSize"), 4);
        QVERIFY(damaged.boolForKey("LW_Sidebar"));
        QCOMPARE(damaged.integerForKey("LW_FontSize"), 14);
        QCOMPARE(damaged.stringForKey("LW_Theme"), QStringLiteral("Classic (Larkwood)"));
        QVERIFY(damaged.dictionaryForKey("LW_User_Extensions").isEmpty());
        QVERIFY(damaged.arrayForKey("LW_PreviouslyOpened").isEmpty());
        QCOMPARE(damaged.integerForKey("LW_WrapLimit"), 80);
        QVERIFY(QFile::exists(LWSettingsFile::path() + ".unreadable"));
        damaged.setInteger("LW_TabSize", 2);
        damaged.synchronize();
        QCOMPARE(LWDefaults().integerForKey("LW_TabSize"), 2);
    }

private:
    static void writeFile(const QString &path, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }

    std::unique_ptr<LWDefaults> defaults;
    std::unique_ptr<LWDefaultsController> controller;
};

QTEST_GUILESS_MAIN(TestDefaults)
#include "tst_defaults.moc"
