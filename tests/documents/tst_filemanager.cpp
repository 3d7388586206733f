#include "documents/FileManager.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <unistd.h>

namespace {

void writeFile(const QString &path, const QByteArray &content = "x")
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A folder holding a small tree: a/b.txt, a/sub/c.txt.
QString makeTree(const QString &root)
{
    const QString tree = root + QStringLiteral("/a");
    QDir().mkpath(tree + QStringLiteral("/sub"));
    writeFile(tree + QStringLiteral("/b.txt"), "bee");
    writeFile(tree + QStringLiteral("/sub/c.txt"), "sea");
    return tree;
}

void verifyTree(const QString &tree)
{
    QCOMPARE(readFile(tree + QStringLiteral("/b.txt")), QByteArray("bee"));
    QCOMPARE(readFile(tree + QStringLiteral("/sub/c.txt")), QByteArray("sea"));
}

}

class TestFileManager : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        scratch = std::make_unique<QTemporaryDir>();
        QVERIFY(scratch->isValid());
        root = scratch->path();
    }

    void backReference()
    {
        QVERIFY(!FileManager::folderContentsWithPath(QStringLiteral("/"), true, true, true, QString())
                     .contains(QStringLiteral("/..")));
        writeFile(root + QStringLiteral("/f"));
        const QStringList listing = FileManager::folderContentsWithPath(root, true, true, true, QString());
        QCOMPARE(listing, QStringList({root + QStringLiteral("/.."), root + QStringLiteral("/f")}));
        QCOMPARE(FileManager::folderContentsWithPath(root, false, false, true), QStringList{"f"});
    }

    void foldersFirstKeepsDirectoryOrder()
    {
        for (int i = 0; i < 12; ++i) {
            if (i % 3 == 0)
                QDir(root).mkdir(QStringLiteral("dir%1").arg(i));
            else
                writeFile(root + QStringLiteral("/file%1").arg(i));
        }
        QVERIFY(QFile::link(root + QStringLiteral("/dir0"), root + QStringLiteral("/linkToDir")));
        const QStringList plain = FileManager::folderContentsWithPath(root, true, false, true, QString());
        QStringList folders, files;
        for (const QString &path : plain)
            (FileManager::isFolder(path) ? folders : files).append(path);
        QVERIFY(folders.contains(root + QStringLiteral("/linkToDir")));
        QCOMPARE(FileManager::folderContentsDirectoryTopWithPath(root, true, false, true, QString()),
                 folders + files);
        QCOMPARE(FileManager::folderContents(root).size(), plain.size());
    }

    void filterAndHidden()
    {
        QDir(root).mkdir(QStringLiteral(".git"));
        QDir(root).mkdir(QStringLiteral("sub"));
        QDir(root + QStringLiteral("/sub")).mkdir(QStringLiteral(".GIT"));
        writeFile(root + QStringLiteral("/.gitignore"));
        writeFile(root + QStringLiteral("/sub/.gitignore"));
        const QString filter = QStringLiteral("^\\.git$");
        QStringList top = FileManager::folderContentsWithPath(root, false, false, true, filter);
        top.sort();
        QCOMPARE(top, QStringList({".gitignore", "sub"}));
        QCOMPARE(FileManager::folderContentsWithPath(root + QStringLiteral("/sub"), false, false, true, filter),
                 QStringList{".gitignore"});
        // The filter looks at names, not at the folder part of full paths.
        QCOMPARE(FileManager::folderContentsWithPath(root + QStringLiteral("/sub"), true, false, true,
                                                     QStringLiteral("sub")).size(), 2);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("invalid name filter"));
        QCOMPARE(FileManager::folderContentsWithPath(root, false, false, true, QStringLiteral("(")).size(), 3);
        QCOMPARE(FileManager::folderContentsWithPath(root, false, false, false), QStringList{"sub"});
    }

    void predicatesAndTypes()
    {
        writeFile(root + QStringLiteral("/one.json"));
        writeFile(root + QStringLiteral("/two.js"));
        writeFile(root + QStringLiteral("/three.JSON"));
        QCOMPARE(FileManager::folderContentsOfType(root, QStringLiteral("json")),
                 QStringList{root + QStringLiteral("/one.json")});
        QCOMPARE(FileManager::folderContentsWithoutPathAndExtensionOfType(root, QStringLiteral("js")),
                 QStringList{"two"});
        QCOMPARE(FileManager::deletingPathExtension(QStringLiteral(".profile")), QStringLiteral(".profile"));
        QCOMPARE(FileManager::deletingPathExtension(QStringLiteral("a.tar.gz")), QStringLiteral("a.tar"));
    }

    void fileTree()
    {
        makeTree(root);
        const QVariantList entries = FileManager::getFileTreeWithoutRoot(root);
        QCOMPARE(entries.size(), 1);
        const QVariantMap a = entries.first().toMap();
        QCOMPARE(a.value("label").toString(), QStringLiteral("a"));
        QCOMPARE(a.value("children").toList().size(), 2);
        QVERIFY(QFile::link(root, root + QStringLiteral("/a/loop")));
        QCOMPARE(FileManager::getFileTree(root).value("children").toList().size(), 1);
    }

    void unreadableFolderListsEmpty()
    {
        writeFile(root + QStringLiteral("/plain"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot list folder"));
        QCOMPARE(FileManager::folderContents(root + QStringLiteral("/plain")), QStringList());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot list folder"));
        QCOMPARE(FileManager::folderContentsWithPath(root + QStringLiteral("/missing"), true, true, true, QString()),
                 QStringList{root + QStringLiteral("/missing/..")});
        if (::geteuid() == 0)
            QSKIP("root reads folders regardless of their mode");
        QDir(root).mkdir(QStringLiteral("closed"));
        QFile::setPermissions(root + QStringLiteral("/closed"), QFileDevice::Permissions());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot list folder"));
        QCOMPARE(FileManager::folderContents(root + QStringLiteral("/closed")), QStringList());
    }

    void uniqueNameReusesGaps()
    {
        writeFile(root + QStringLiteral("/Untitled - 1"));
        writeFile(root + QStringLiteral("/Untitled - 3"));
        const QString format = QStringLiteral("Untitled - %d");
        QCOMPARE(FileManager::uniqueFileWithFormat(root, format), root + QStringLiteral("/Untitled - 2"));
        writeFile(root + QStringLiteral("/Untitled - 2"));
        QCOMPARE(FileManager::uniqueFileWithFormat(root, format), root + QStringLiteral("/Untitled - 4"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no %d in format"));
        QCOMPARE(FileManager::uniqueFileWithFormat(root, QStringLiteral("Untitled - 1")),
                 root + QStringLiteral("/Untitled - 1"));
    }

    void facts()
    {
        QVERIFY(!FileManager::isFileHidden(QStringLiteral("..")));
        QVERIFY(!FileManager::isFileHidden(QStringLiteral("/home/user/..")));
        QVERIFY(FileManager::isFileHidden(QStringLiteral(".profile")));
        QVERIFY(FileManager::isFileHidden(QStringLiteral("/home/user/.config/")));
        QVERIFY(FileManager::isTextFile(QStringLiteral("/x/readme.txt")));
        QVERIFY(FileManager::isTextFile(QStringLiteral("/x/main.cpp")));
        QVERIFY(FileManager::isTextFile(QStringLiteral("/x/info.json")));
        QVERIFY(!FileManager::isTextFile(QStringLiteral("/x/picture.png")));
        const QString missing = root + QStringLiteral("/missing");
        QVERIFY(!FileManager::fileExists(missing));
        QVERIFY(!FileManager::isFolder(missing));
        QCOMPARE(FileManager::getFileSize(missing), 0);
        QVERIFY(!FileManager::getDateModified(missing).isValid());
        QVERIFY(FileManager::fileAttributes(missing).isEmpty());
        writeFile(root + QStringLiteral("/f"), "12345");
        QCOMPARE(FileManager::fileAttributes(root + QStringLiteral("/f")).value("size").toLongLong(), 5);
    }

    void sizeIsCutTo32Bits()
    {
        QFile sparse(root + QStringLiteral("/big"));
        QVERIFY(sparse.open(QIODevice::WriteOnly));
        QVERIFY(sparse.resize(Q_INT64_C(5) * 1024 * 1024 * 1024 + 7));
        sparse.close();
        QCOMPARE(FileManager::getFileSize(sparse.fileName()), 1024 * 1024 * 1024 + 7);
    }

    void copyMoveRenameDeleteTrees()
    {
        const QString tree = makeTree(root);
        FileManager::copyTo(tree, root + QStringLiteral("/copy"));
        verifyTree(root + QStringLiteral("/copy"));
        QDir(root).mkdir(QStringLiteral("into"));
        FileManager::copyToFolder(tree, root + QStringLiteral("/into"));
        verifyTree(root + QStringLiteral("/into/a"));
        FileManager::moveTo(root + QStringLiteral("/copy"), root + QStringLiteral("/moved"));
        verifyTree(root + QStringLiteral("/moved"));
        QVERIFY(!FileManager::fileExists(root + QStringLiteral("/copy")));
        FileManager::renameAs(root + QStringLiteral("/moved"), root + QStringLiteral("/renamed"));
        verifyTree(root + QStringLiteral("/renamed"));
        FileManager::deleteFile(root + QStringLiteral("/renamed"));
        QVERIFY(!FileManager::fileExists(root + QStringLiteral("/renamed")));
        FileManager::createAsFolder(root + QStringLiteral("/x/y/z"));
        QVERIFY(FileManager::isFolder(root + QStringLiteral("/x/y/z")));
    }

    void recursiveCopyReplacesDestination()
    {
        const QString tree = makeTree(root);
        const QString destination = root + QStringLiteral("/dest");
        QDir().mkpath(destination + QStringLiteral("/stale"));
        FileManager::recursiveCopyToPath(tree, destination);
        verifyTree(destination);
        QVERIFY(!FileManager::fileExists(destination + QStringLiteral("/stale")));
        QCOMPARE(QDir(root).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 2);
    }

    void failuresLogAndKeepData()
    {
        const QString tree = makeTree(root);
        writeFile(root + QStringLiteral("/taken"), "keep");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^NSString \\(FileManager\\) : copyToPath :: ERROR : .*exists"));
        FileManager::copyTo(tree, root + QStringLiteral("/taken"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^NSString \\(FileManager\\) : copyToPath :: ERROR : "));
        FileManager::copyTo(tree, tree + QStringLiteral("/sub/inside"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^NSString \\(FileManager\\) : moveTo :: ERROR : "));
        FileManager::moveTo(tree, root + QStringLiteral("/taken"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^NSString \\(FileManager\\) : renameAs :: ERROR : "));
        FileManager::renameAs(root + QStringLiteral("/missing"), root + QStringLiteral("/other"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^NSString \\(FileManager\\) : deleteFile :: ERROR : "));
        FileManager::deleteFile(root + QStringLiteral("/missing"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^NSString \\(FileManager\\) : copyToPath :: ERROR : "));
        FileManager::createAsFolder(root + QStringLiteral("/taken/below"));
        QCOMPARE(readFile(root + QStringLiteral("/taken")), QByteArray("keep"));
        verifyTree(tree);
    }

private:
    std::unique_ptr<QTemporaryDir> scratch;
    QString root;
};

QTEST_GUILESS_MAIN(TestFileManager)
#include "tst_filemanager.moc"
