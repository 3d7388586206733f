#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "support/OutlineRows.h"
#include "support/WebTestMain.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

// The real window started with a folder on the command line, while another
// program creates, removes and renames entries in that folder.
class TestSidebarFollowsDisk : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { delegate.reset(); }
    void rowsFollowTheDiskKeepingOpenFoldersAndSelection();

private:
    WorkspaceOutline *outline() const { return delegate->window()->outline(); }
    QModelIndex group() const { return outline()->model()->index(1, 0); }
    QModelIndex row(const QModelIndex &parent, const QString &label) const
    {
        return OutlineRows::child(outline(), parent, label);
    }
    QStringList labels(const QModelIndex &parent) const
    {
        QStringList sorted = OutlineRows::labels(outline(), parent);
        sorted.sort();
        return sorted;
    }
    void write(const QString &relative) const;

    QTemporaryDir scratch;
    QString root;
    std::unique_ptr<LWAppDelegate> delegate;
};

void TestSidebarFollowsDisk::write(const QString &relative) const
{
    const QString path = root + QLatin1Char('/') + relative;
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("text\n");
}

void TestSidebarFollowsDisk::initTestCase()
{
    root = scratch.filePath(QStringLiteral("proj"));
    write(QStringLiteral("keep.txt"));
    write(QStringLiteral("doomed.txt"));
    write(QStringLiteral("before.txt"));
    write(QStringLiteral("sub/inner.txt"));
    write(QStringLiteral("oldfolder/item.txt"));
    delegate = std::make_unique<LWAppDelegate>(QStringList{root});
    delegate->window()->resize(1000, 700);
    delegate->window()->show();
    QSignalSpy ready(delegate.get(), &LWAppDelegate::editorReady);
    QVERIFY(ready.wait(60000));
    QTRY_VERIFY_WITH_TIMEOUT(row(group(), QStringLiteral("sub")).isValid(), 20000);
}

void TestSidebarFollowsDisk::rowsFollowTheDiskKeepingOpenFoldersAndSelection()
{
    outline()->expand(group());
    const QPersistentModelIndex sub = row(group(), QStringLiteral("sub"));
    outline()->expand(sub);
    const QPersistentModelIndex keep = row(group(), QStringLiteral("keep.txt"));
    outline()->setCurrentIndex(keep);

    write(QStringLiteral("created.txt"));
    write(QStringLiteral("sub/added.py"));
    write(QStringLiteral("madefolder/x.txt"));
    QVERIFY(QFile::remove(root + QStringLiteral("/doomed.txt")));
    QVERIFY(QFile::rename(root + QStringLiteral("/before.txt"), root + QStringLiteral("/after.txt")));
    QVERIFY(QDir().rename(root + QStringLiteral("/oldfolder"), root + QStringLiteral("/newfolder")));
    QTRY_COMPARE_WITH_TIMEOUT(labels(group()),
                              QStringList({"after.txt", "created.txt", "keep.txt", "madefolder", "newfolder", "sub"}),
                              2000);
    QTRY_COMPARE_WITH_TIMEOUT(labels(sub), QStringList({"added.py", "inner.txt"}), 2000);
    QVERIFY(outline()->isExpanded(group()) && outline()->isExpanded(sub));
    QCOMPARE(outline()->currentIndex(), QModelIndex(keep));

    // A removed subfolder goes too; a full redraw keeps open folders open
    // and watched.
    QVERIFY(QDir(root + QStringLiteral("/madefolder")).removeRecursively());
    QTRY_VERIFY_WITH_TIMEOUT(!row(group(), QStringLiteral("madefolder")).isValid(), 2000);
    delegate->reloadOutline();
    QVERIFY(outline()->isExpanded(group()) && outline()->isExpanded(row(group(), QStringLiteral("sub"))));
    QCOMPARE(outline()->selected()->fullPath(), root + QStringLiteral("/keep.txt"));
    write(QStringLiteral("sub/afterRedraw.txt"));
    QTRY_VERIFY_WITH_TIMEOUT(row(row(group(), QStringLiteral("sub")), QStringLiteral("afterRedraw.txt")).isValid(), 2000);

    // A closed folder is not watched, and is brought in line when opened.
    const QPersistentModelIndex closed = row(group(), QStringLiteral("newfolder"));
    write(QStringLiteral("newfolder/late.txt"));
    QTest::qWait(600);
    QCOMPARE(labels(closed), QStringList({"item.txt"}));
    outline()->expand(closed);
    QTRY_COMPARE_WITH_TIMEOUT(labels(closed), QStringList({"item.txt", "late.txt"}), 200);
}

LW_WEB_TEST_MAIN(TestSidebarFollowsDisk)
#include "tst_SidebarFollowsDisk.moc"
