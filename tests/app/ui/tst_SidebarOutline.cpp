#include "app/ui/LWFileOutlineMenuController.h"
#include "documents/LWDocumentManager.h"
#include "support/OutlineRows.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTemporaryDir>

// The real window with a project folder open in its sidebar, used as a
// person does: reading the rows, typing a filter, renaming in place,
// dragging rows and files from the desktop, the context menu, and the icon
// of a file being edited.
class TestSidebarOutline : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { window.reset(); }
    void rowsShowFoldersFirstInNaturalOrderWithoutGit();
    void theFilterShowsEveryMatchOpen();
    void renamingInPlaceRenamesOnDiskAndNeverReplacesAFile();
    void draggingMovesRowsAndCopiesFilesIn();
    void contextMenuMakesAndDeletesItems();
    void theRemoteMappingIsPrivateAndEnablesTransfers();
    void anEditedFilesIconIsDimmedUntilSaved();

private:
    WorkspaceOutline *outline() const { return window->delegate->window()->outline(); }
    QModelIndex row(const QString &path) const { return OutlineRows::at(outline(), QStringLiteral("PROJ/") + path); }
    QString onDisk(const QString &relative) const { return root + QLatin1Char('/') + relative; }
    void write(const QString &path) const;
    void drop(const QMimeData &data, const QModelIndex &target, Qt::DropAction action);
    // Opens the context menu on the row as a right click does and chooses the entry.
    QAction *menuEntry(const QModelIndex &index, const QString &title);
    QImage iconOf(const QModelIndex &index) const
    {
        return index.data(Qt::DecorationRole).value<QPixmap>().toImage();
    }

    QTemporaryDir scratch;
    QString root;
    std::unique_ptr<WindowDriver> window;
};

void TestSidebarOutline::write(const QString &path) const
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("text\n");
}

void TestSidebarOutline::initTestCase()
{
    root = scratch.filePath(QStringLiteral("proj"));
    for (const char *name : {"file10.txt", "file2.txt", "File1.txt", ".gitignore", ".git/config", "beta/inner.txt",
                             "Alpha/x.py", "sub/keep.txt", "image.png"})
        write(onDisk(QString::fromLatin1(name)));
    window = std::make_unique<WindowDriver>(QStringList{root});
    QVERIFY(window->start());
    QTRY_VERIFY_WITH_TIMEOUT(row(QStringLiteral("sub")).isValid(), 20000);
    outline()->expand(OutlineRows::at(outline(), QStringLiteral("PROJ")));
}

void TestSidebarOutline::rowsShowFoldersFirstInNaturalOrderWithoutGit()
{
    const QModelIndex group = OutlineRows::at(outline(), QStringLiteral("PROJ"));
    QCOMPARE(OutlineRows::labels(outline(), group),
             QStringList({"Alpha", "beta", "sub", ".gitignore", "File1.txt", "file2.txt", "file10.txt", "image.png"}));
    QVERIFY(!(group.flags() & Qt::ItemIsSelectable));
    const QModelIndex file = row(QStringLiteral("file2.txt"));
    QCOMPARE(file.data(Qt::ToolTipRole).toString(), onDisk(QStringLiteral("file2.txt")));
    QCOMPARE(iconOf(file).size(), QSize(15, 15));
    QCOMPARE(iconOf(file), iconOf(row(QStringLiteral("file10.txt"))));
    QVERIFY(iconOf(file) != iconOf(row(QStringLiteral("Alpha"))));
}

void TestSidebarOutline::theFilterShowsEveryMatchOpen()
{
    QLineEdit *filter = window->delegate->window()->outlineFilterField();
    QTest::keyClicks(filter, QStringLiteral("inner"));
    QTRY_COMPARE(OutlineRows::labels(outline(), OutlineRows::at(outline(), QStringLiteral("PROJ"))),
                 QStringList({"beta"}));
    QVERIFY(outline()->isExpanded(row(QStringLiteral("beta"))));
    QVERIFY(outline()->visualRect(row(QStringLiteral("beta/inner.txt"))).isValid());

    filter->clear();
    QTRY_COMPARE(OutlineRows::labels(outline(), OutlineRows::at(outline(), QStringLiteral("PROJ"))).size(), 8);
}

void TestSidebarOutline::renamingInPlaceRenamesOnDiskAndNeverReplacesAFile()
{
    const QModelIndex file = row(QStringLiteral("File1.txt"));
    QTest::mouseClick(outline()->viewport(), Qt::LeftButton, {}, outline()->visualRect(file).center());
    QTest::keyClick(outline(), Qt::Key_F2);
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("renamed.txt"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(QFile::exists(onDisk(QStringLiteral("renamed.txt"))));
    QVERIFY(!QFile::exists(onDisk(QStringLiteral("File1.txt"))));
    QTRY_VERIFY(row(QStringLiteral("renamed.txt")).isValid());

    // Taking another file's name is refused with a message; both files stay.
    outline()->startRenaming(window->delegate->documentManager()->documentTree().documentWithFullPath(
        onDisk(QStringLiteral("renamed.txt"))));
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("file2.txt"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(window->answer(QStringLiteral("OK")));
    QVERIFY(QFile::exists(onDisk(QStringLiteral("renamed.txt"))) && QFile::exists(onDisk(QStringLiteral("file2.txt"))));
}

void TestSidebarOutline::drop(const QMimeData &data, const QModelIndex &target, Qt::DropAction action)
{
    outline()->scrollTo(target);
    const QPoint position = outline()->visualRect(target).center();
    QDragEnterEvent enter(position, action, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(outline()->viewport(), &enter);
    QDragMoveEvent move(position, action, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(outline()->viewport(), &move);
    QVERIFY(move.isAccepted());
    QDropEvent dropped(position, action, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(outline()->viewport(), &dropped);
}

void TestSidebarOutline::draggingMovesRowsAndCopiesFilesIn()
{
    std::unique_ptr<QMimeData> dragged(outline()->model()->mimeData({row(QStringLiteral("file10.txt"))}));
    drop(*dragged, row(QStringLiteral("sub")), Qt::MoveAction);
    QTRY_VERIFY(QFile::exists(onDisk(QStringLiteral("sub/file10.txt"))));
    QVERIFY(!QFile::exists(onDisk(QStringLiteral("file10.txt"))));
    QTRY_VERIFY(row(QStringLiteral("sub/file10.txt")).isValid());
    QVERIFY(!row(QStringLiteral("file10.txt")).isValid());

    // From the desktop's file manager: copied in, the original stays.
    const QString outside = scratch.filePath(QStringLiteral("outside/note.md"));
    write(outside);
    QMimeData fromDesktop;
    fromDesktop.setUrls({QUrl::fromLocalFile(outside)});
    drop(fromDesktop, row(QStringLiteral("Alpha")), Qt::CopyAction);
    QTRY_VERIFY(row(QStringLiteral("Alpha/note.md")).isValid());
    QVERIFY(QFile::exists(onDisk(QStringLiteral("Alpha/note.md"))) && QFile::exists(outside));
}

QAction *TestSidebarOutline::menuEntry(const QModelIndex &index, const QString &title)
{
    outline()->scrollTo(index);
    const QPoint position = outline()->visualRect(index).center();
    QContextMenuEvent click(QContextMenuEvent::Mouse, position, outline()->viewport()->mapToGlobal(position));
    QApplication::sendEvent(outline()->viewport(), &click);
    auto *controller = outline()->findChild<LWFileOutlineMenuController *>();
    QMenu *menu = controller->fileOutlineMenu();
    menu->hide();
    QList<QAction *> entries = menu->actions();
    for (int at = 0; at < entries.size(); ++at) {
        if (entries[at]->menu())
            entries.append(entries[at]->menu()->actions());
        if (entries[at]->text() == title)
            return entries[at];
    }
    return nullptr;
}

void TestSidebarOutline::contextMenuMakesAndDeletesItems()
{
    menuEntry(row(QStringLiteral("beta")), QStringLiteral("New File"))->trigger();
    QTRY_VERIFY(QFile::exists(onDisk(QStringLiteral("beta/Untitled - 1"))));
    QTRY_COMPARE(outline()->selected()->fullPath(), onDisk(QStringLiteral("beta/Untitled - 1")));

    menuEntry(row(QStringLiteral("beta")), QStringLiteral("New Folder"))->trigger();
    QTRY_VERIFY(QFileInfo(onDisk(QStringLiteral("beta/Untitled - 2"))).isDir());
    QTRY_VERIFY(row(QStringLiteral("beta/Untitled - 2")).isValid());

    // Delete asks first; "No" keeps the file.
    menuEntry(row(QStringLiteral("beta/inner.txt")), QStringLiteral("Delete"))->trigger();
    QVERIFY(window->answer(QStringLiteral("No")));
    QVERIFY(QFile::exists(onDisk(QStringLiteral("beta/inner.txt"))));
    menuEntry(row(QStringLiteral("beta/inner.txt")), QStringLiteral("Delete"))->trigger();
    QVERIFY(window->answer(QStringLiteral("Yes")));
    QTRY_VERIFY(!row(QStringLiteral("beta/inner.txt")).isValid());
    QVERIFY(!QFile::exists(onDisk(QStringLiteral("beta/inner.txt"))));

    // The loose files' group cannot be removed and has no folder on disk.
    const QModelIndex files = OutlineRows::at(outline(), QStringLiteral("FILES"));
    QVERIFY(!menuEntry(files, QStringLiteral("Remove from Workspace"))->isEnabled());
    QVERIFY(!menuEntry(files, QStringLiteral("New Folder"))->isEnabled());
    QVERIFY(!menuEntry(files, QStringLiteral("Upload Local -> Remote"))->isEnabled());
}

void TestSidebarOutline::theRemoteMappingIsPrivateAndEnablesTransfers()
{
    QVERIFY(!menuEntry(row(QStringLiteral("sub")), QStringLiteral("Upload Local -> Remote"))->isEnabled());
    menuEntry(row(QStringLiteral("sub")), QStringLiteral("Map to remote location"))->trigger();
    const QString settings = onDisk(QStringLiteral("sub/.ftp-settings.json"));
    QTRY_VERIFY(QFile::exists(settings));
    QFile file(settings);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("{\n\t\"type\": \"ftp\",\n\t\"host\": \"hostaddress\",\n\t\"username\": "
                                        "\"username\",\n\t\"password\": \"password\",\n\t\"port\": \"22\",\n\t"
                                        "\"excluded\": [],\n\t\"path\": \"/\"\n}"));
    QCOMPARE(file.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
             QFile::Permissions());

    QVERIFY(!menuEntry(row(QStringLiteral("sub")), QStringLiteral("Map to remote location"))->isEnabled());
    QVERIFY(menuEntry(row(QStringLiteral("sub")), QStringLiteral("Upload Local -> Remote"))->isEnabled());
}

void TestSidebarOutline::anEditedFilesIconIsDimmedUntilSaved()
{
    const QModelIndex file = row(QStringLiteral("file2.txt"));
    const QImage clean = iconOf(file);
    QTest::mouseClick(outline()->viewport(), Qt::LeftButton, {}, outline()->visualRect(file).center());
    // The arrow keys open the file of the row they move to.
    const auto current = [this] { return window->delegate->documentManager()->currentDocument()->label(); };
    QTest::keyClick(outline(), Qt::Key_Up);
    QTRY_COMPARE(current(), QStringLiteral(".gitignore"));
    QTest::keyClick(outline(), Qt::Key_Down);
    QTRY_COMPARE(current(), QStringLiteral("file2.txt"));
    QTRY_COMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("text\n"));
    window->delegate->webView()->view()->setFocus();
    QVERIFY(window->typeKeys(QStringLiteral("more ")));
    QTRY_VERIFY(iconOf(row(QStringLiteral("file2.txt"))) != clean);
    window->pressSave();
    QTRY_COMPARE(iconOf(row(QStringLiteral("file2.txt"))), clean);
}

LW_WEB_TEST_MAIN(TestSidebarOutline)
#include "tst_SidebarOutline.moc"
