#include "app/LWDefaults.h"
#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "documents/LWRecentDocuments.h"
#include "documents/ui/TabBarView.h"
#include "editor/ui/LWWebViewController.h"
#include "support/WebTestMain.h"

#include <QAbstractButton>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWebEngineView>
#include <QtTest>

// Opening files and folders in the real window on the real editor page:
// the files named on the command line, and the ways the user asks for more.
class TestOpeningFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void commandLineFilesOpenInOrderWithTheLastShown();
    void openFolderAddsTheFolder();
    void droppedFilesAndFoldersOpen();
    void openRecentOpensForgetsAndClears();
    void largeFileIsReadOnlyWhenAskedAndBinaryShowsItsStart();

private:
    QString page(const QString &script) { return delegate->evaluateInEditor(script); }
    LWDocument::Ptr current() const { return delegate->documentManager()->currentDocument(); }
    QString write(const QString &name, const QByteArray &content);
    QString makeFolder(const QString &name);
    bool workspaceHasFolder(const QString &path) const;
    // The Open Recent submenu's item titles, as the user sees them when it opens.
    QStringList recentTitles();
    QAction *recentItem(const QString &title);
    void drop(const QStringList &paths);
    // Waits for the window's message whose title contains the words, and presses the button.
    void answer(const QString &titleWords, const QString &button);
    // The tab, the outline row and the editor all show the current document.
    void verifyShownEverywhere(const QString &label, const QString &text);

    QTemporaryDir folder;
    std::unique_ptr<LWAppDelegate> delegate;
};

QString TestOpeningFiles::write(const QString &name, const QByteArray &content)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
    return path;
}

void TestOpeningFiles::initTestCase()
{
    const QStringList paths{write(QStringLiteral("one.txt"), "first file"),
                            write(QStringLiteral("two.txt"), "second file"),
                            write(QStringLiteral("three.txt"), "third file")};
    delegate = std::make_unique<LWAppDelegate>(paths);
    delegate->window()->resize(1000, 700);
    delegate->window()->show();
    QSignalSpy ready(delegate.get(), &LWAppDelegate::editorReady);
    QVERIFY(ready.wait(60000));
}

void TestOpeningFiles::cleanupTestCase()
{
    delegate.reset();
}

void TestOpeningFiles::verifyShownEverywhere(const QString &label, const QString &text)
{
    QTRY_VERIFY_WITH_TIMEOUT(current() && current()->label() == label, 20000);
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("lw.editor.getValue()")), text, 20000);
    TabBarView *tabs = delegate->window()->tabs();
    QCOMPARE(tabs->selectedTab()->title(), label);
    QCOMPARE(delegate->window()->outline()->selected(), current());
}

void TestOpeningFiles::commandLineFilesOpenInOrderWithTheLastShown()
{
    const LWDocument::Ptr files = delegate->documentManager()->documentTree().filesGroup();
    QTRY_COMPARE_WITH_TIMEOUT(static_cast<int>(files->children().size()), 3, 20000);
    verifyShownEverywhere(QStringLiteral("three.txt"), QStringLiteral("third file"));
    // Late queued events must not move the editor away from the selected tab.
    QTest::qWait(500);
    verifyShownEverywhere(QStringLiteral("three.txt"), QStringLiteral("third file"));
    TabBarView *tabs = delegate->window()->tabs();
    QStringList labels;
    for (int index = 0; index < tabs->count(); ++index)
        labels << tabs->tabAt(index)->title();
    QCOMPARE(labels, (QStringList{QStringLiteral("one.txt"), QStringLiteral("two.txt"), QStringLiteral("three.txt")}));
    // Each tab shows its own document.
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRectFromIndex(0).center());
    verifyShownEverywhere(QStringLiteral("one.txt"), QStringLiteral("first file"));
}

QString TestOpeningFiles::makeFolder(const QString &name)
{
    QDir(folder.path()).mkpath(name + QStringLiteral("/inner"));
    write(name + QStringLiteral("/inner/notes.txt"), "notes");
    return folder.filePath(name);
}

bool TestOpeningFiles::workspaceHasFolder(const QString &path) const
{
    const LWDocument::List &groups = delegate->documentManager()->documentTree().groups();
    return std::any_of(groups.begin(), groups.end(),
                       [&](const LWDocument::Ptr &group) { return group->fullPath() == path; });
}

void TestOpeningFiles::openFolderAddsTheFolder()
{
    const QString chosen = makeFolder(QStringLiteral("project"));
    auto *item = delegate->window()->findChild<QAction *>(QStringLiteral("openFolderAction"));
    QVERIFY(item);
    QCOMPARE(item->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+O")));
    item->trigger();
    QFileDialog *dialog = nullptr;
    QTRY_VERIFY((dialog = delegate->window()->findChild<QFileDialog *>()) && dialog->isVisible());
    QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
    dialog->setDirectory(chosen);
    dialog->selectFile(chosen);
    static_cast<QDialog *>(dialog)->accept();
    QTRY_VERIFY_WITH_TIMEOUT(workspaceHasFolder(chosen), 20000);
}

void TestOpeningFiles::drop(const QStringList &paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls << QUrl::fromLocalFile(path);
    data.setUrls(urls);
    // Dropped where a user drops them: on the editor, whose page must not
    // navigate to the file.
    QWebEngineView *view = delegate->webView()->view();
    QWidget *target = view->focusProxy() ? view->focusProxy() : view;
    const QPoint middle = target->rect().center();
    const QUrl pageBefore = view->url();
    QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent dropped(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &dropped);
    QVERIFY(dropped.isAccepted());
    QTest::qWait(200);
    QCOMPARE(view->url(), pageBefore);
}

void TestOpeningFiles::answer(const QString &titleWords, const QString &button)
{
    QMessageBox *box = nullptr;
    QTRY_VERIFY_WITH_TIMEOUT((box = delegate->window()->findChild<QMessageBox *>()) && box->isVisible()
                                 && box->text().contains(titleWords),
                             20000);
    const QList<QAbstractButton *> buttons = box->buttons();
    const auto pressed = std::find_if(buttons.begin(), buttons.end(),
                                      [&](QAbstractButton *candidate) { return candidate->text() == button; });
    QVERIFY2(pressed != buttons.end(), qPrintable(button));
    (*pressed)->click();
    QTRY_VERIFY(!box->isVisible());
}

void TestOpeningFiles::droppedFilesAndFoldersOpen()
{
    const QString droppedFolder = makeFolder(QStringLiteral("dropped"));
    // Latin-1 text while UTF-8 is preferred: shown as text, not as hexadecimal.
    const QString droppedFile = write(QStringLiteral("dropped.txt"), "caf\xe9 dropped");
    drop({droppedFolder, droppedFile});
    QTRY_VERIFY_WITH_TIMEOUT(workspaceHasFolder(droppedFolder), 20000);
    verifyShownEverywhere(QStringLiteral("dropped.txt"), QStringLiteral("café dropped"));
    QVERIFY(!current()->readOnly());

    QWidget *window = delegate->window();
    const QPoint middle = window->rect().center();
    QMimeData remote;
    remote.setUrls({QUrl(QStringLiteral("https://example.org/page.html"))});
    QDragEnterEvent refused(middle, Qt::CopyAction, &remote, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &refused);
    QVERIFY(!refused.isAccepted());
}

QStringList TestOpeningFiles::recentTitles()
{
    auto *recents = delegate->window()->findChild<QMenu *>(QStringLiteral("recentsMenu"));
    if (!recents)
        return {};
    emit recents->aboutToShow();
    QStringList titles;
    for (QAction *item : recents->actions())
        titles << item->text();
    return titles;
}

QAction *TestOpeningFiles::recentItem(const QString &title)
{
    recentTitles();
    for (QAction *item : delegate->window()->findChild<QMenu *>(QStringLiteral("recentsMenu"))->actions()) {
        if (item->text() == title)
            return item;
    }
    return nullptr;
}

void TestOpeningFiles::openRecentOpensForgetsAndClears()
{
    // Newest first: what the earlier cases opened, the command line's files last.
    const QStringList titles = recentTitles();
    QCOMPARE(titles.mid(0, 3), (QStringList{folder.filePath(QStringLiteral("dropped.txt")),
                                            folder.filePath(QStringLiteral("dropped")),
                                            folder.filePath(QStringLiteral("project"))}));
    QCOMPARE(titles.at(titles.size() - 3), folder.filePath(QStringLiteral("one.txt")));
    QCOMPARE(titles.last(), QStringLiteral("Clear Menu"));

    const QString earlier = write(QStringLiteral("earlier.txt"), "from an earlier run");
    const QString gone = folder.filePath(QStringLiteral("gone.txt"));
    LWRecentDocuments::note(gone);
    LWRecentDocuments::note(earlier);
    QAction *item = recentItem(earlier);
    QVERIFY(item);
    item->trigger();
    verifyShownEverywhere(QStringLiteral("earlier.txt"), QStringLiteral("from an earlier run"));

    item = recentItem(gone);
    QVERIFY(item);
    item->trigger();
    answer(QStringLiteral("cannot be opened"), QStringLiteral("OK"));
    QVERIFY(!recentTitles().contains(gone));
    QVERIFY(!LWDefaults::shared()->arrayForKey(QStringLiteral("LW_RecentDocuments")).contains(gone));

    recentItem(QStringLiteral("Clear Menu"))->trigger();
    QCOMPARE(recentTitles(), (QStringList{QString(), QStringLiteral("Clear Menu")}));
    QVERIFY(LWDefaults::shared()->arrayForKey(QStringLiteral("LW_RecentDocuments")).isEmpty());
}

void TestOpeningFiles::largeFileIsReadOnlyWhenAskedAndBinaryShowsItsStart()
{
    // A sparse gigabyte of NUL bytes: nothing is read before the user agrees,
    // and then only the start of the binary content.
    const QString path = folder.filePath(QStringLiteral("huge.bin"));
    QFile huge(path);
    QVERIFY(huge.open(QIODevice::WriteOnly));
    QVERIFY(huge.resize(qint64(1) << 30));
    huge.close();
    drop({path});
    QTRY_VERIFY_WITH_TIMEOUT(current() && current()->label() == QLatin1String("huge.bin"), 20000);
    QVERIFY(current()->getContent().contains(QLatin1String("was not read")));
    answer(QStringLiteral("large file"), QStringLiteral("Open Anyway"));
    answer(QStringLiteral("Only part"), QStringLiteral("OK"));
    const QString shown = current()->getContent();
    QVERIFY(shown.startsWith(QLatin1String("00000000 00000000 ")));
    QVERIFY(shown.size() < 3 * 1024 * 1024);
    QVERIFY(current()->readOnly());
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String(lw.editor.getValue().length)")), QString::number(shown.size()), 20000);
}

LW_WEB_TEST_MAIN(TestOpeningFiles)
#include "tst_OpeningFiles.moc"
