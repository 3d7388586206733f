#include "app/LWPaths.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QtTest>

// The data root and the resource folder follow the environment of the run.
class TestPaths : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        qunsetenv("APP_SANDBOX_CONTAINER_ID");
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_DATA_HOME", (home.path() + "/xdg-data").toUtf8());
    }

    void dataRootFollowsTheXdgDataHome()
    {
        QCOMPARE(LWPaths::dataRoot(), home.path() + "/xdg-data/Larkwood");
        QCOMPARE(LWPaths::dataPath("Data/Html"), home.path() + "/xdg-data/Larkwood/Data/Html");
    }

    void dataRootFallsBackToTheHomeWhenXdgIsUnsetOrRelative()
    {
        qunsetenv("XDG_DATA_HOME");
        QCOMPARE(LWPaths::dataRoot(), home.path() + "/.local/share/Larkwood");
        qputenv("XDG_DATA_HOME", "relative/data");
        QCOMPARE(LWPaths::dataRoot(), home.path() + "/.local/share/Larkwood");
    }

    void sandboxedProcessesKeepTheirDataInTheHome()
    {
        QVERIFY(!LWPaths::isSandboxed());
        for (const QByteArray value : {QByteArray("larkwood"), QByteArray()}) {
            qputenv("APP_SANDBOX_CONTAINER_ID", value);
            QVERIFY2(LWPaths::isSandboxed(), value.constData());
            QCOMPARE(LWPaths::dataRoot(), QDir(home.path()).absolutePath());
        }
    }

    void resourceFolderIsOverriddenOrBesideTheExecutable()
    {
        const QByteArray saved = qgetenv("LARKWOOD_RESOURCES");
        qputenv("LARKWOOD_RESOURCES", "/opt/larkwood/share//larkwood/");
        QCOMPARE(LWPaths::resourcePath("getpath.sh"), QString("/opt/larkwood/share/larkwood/getpath.sh"));
        qunsetenv("LARKWOOD_RESOURCES");
        QCOMPARE(LWPaths::resourceFolder(),
                 QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../share/larkwood"));
        qputenv("LARKWOOD_RESOURCES", saved);
    }

private:
    QTemporaryDir home;
};

QTEST_GUILESS_MAIN(TestPaths)
#include "tst_paths.moc"
