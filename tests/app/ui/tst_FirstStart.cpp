#include "app/LWPaths.h"
#include "app/LWSettingsFile.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QSettings>
#include <QTemporaryDir>

// The very first start: the window opens on the shipped files while the
// per-user copy of them is made in the background, then switches to the copy
// with its installed themes.
class TestFirstStart : public QObject
{
    Q_OBJECT

private slots:
    void windowOpensBeforeTheCopyAndThenUsesIt();
};

void TestFirstStart::windowOpensBeforeTheCopyAndThenUsesIt()
{
    QTemporaryDir dataHome;
    qputenv("XDG_DATA_HOME", dataHome.path().toUtf8());
    QSettings(LWSettingsFile::path(), QSettings::IniFormat).clear();
    const QString file = dataHome.filePath(QStringLiteral("notes.txt"));
    QFile notes(file);
    QVERIFY(notes.open(QIODevice::WriteOnly));
    notes.write("first line\n");
    notes.close();

    WindowDriver window({file});
    QVERIFY(window.start());
    // The page came from the shipped tree, and the copy is not marked
    // complete before it is whole.
    QVERIFY(window.page(QStringLiteral("location.pathname")).startsWith(LWPaths::resourceFolder()));
    QVERIFY(window.activate());
    QVERIFY(window.typeKeys(QStringLiteral("typed ")));

    const QString version = LWPaths::dataPath(QStringLiteral("version.txt"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(version), 60000);
    QVERIFY(QFile::exists(LWPaths::dataPath(QStringLiteral("Data/Html/index.html"))));
    // The stored theme, compiled into the copy, reaches the editor.
    QTRY_COMPARE_WITH_TIMEOUT(window.page(QStringLiteral("lw.editor.renderer.$themeId")),
                              QStringLiteral("ace/theme/larkwood-classic"), 60000);
    QVERIFY(window.page(QStringLiteral("lw.editor.getValue()")).contains(QStringLiteral("typed")));
}

LW_WEB_TEST_MAIN(TestFirstStart)
#include "tst_FirstStart.moc"
