#include "documents/LWOutlineDrop.h"
#include "documents/LWOutlineOrder.h"

#include <QRandomGenerator>
#include <QtTest>

// The sidebar's row order and which drops it takes, on nodes built in memory.
class tst_LWOutlineOrder : public QObject
{
    Q_OBJECT

private slots:
    void foldersComeFirstThenNamesInNaturalOrder();
    void anUpdatedOrderEqualsAFreshSort();
    void dropsNeedAFolderOnDiskWithoutThatName();

private:
    static LWDocument::Ptr node(LWDocument::Kind kind, const QString &label, const QString &fullPath = {});
    static QStringList labels(const LWDocument::List &nodes);
};

LWDocument::Ptr tst_LWOutlineOrder::node(LWDocument::Kind kind, const QString &label, const QString &fullPath)
{
    LWDocument::Ptr made = LWDocument::createBare();
    made->setType(kind);
    made->setLabel(label);
    made->setFullPath(fullPath);
    return made;
}

QStringList tst_LWOutlineOrder::labels(const LWDocument::List &nodes)
{
    QStringList result;
    for (const LWDocument::Ptr &each : nodes)
        result.append(each->label());
    return result;
}

void tst_LWOutlineOrder::foldersComeFirstThenNamesInNaturalOrder()
{
    LWDocument::List children;
    for (const char *label : {"file10.txt", "b", "File1.txt", "file2.txt", "a.txt"})
        children.push_back(node(LWDocument::File, QString::fromLatin1(label)));
    children.push_back(node(LWDocument::Folder, QStringLiteral("zeta")));
    children.push_back(node(LWDocument::Folder, QStringLiteral("Alpha")));
    QCOMPARE(labels(LWOutlineOrder().sorted(children)),
             QStringList({"Alpha", "zeta", "a.txt", "b", "File1.txt", "file2.txt", "file10.txt"}));
}

// Arrivals, renames and departures placed into the earlier order give what
// sorting from scratch gives.
void tst_LWOutlineOrder::anUpdatedOrderEqualsAFreshSort()
{
    QRandomGenerator random(7);
    LWDocument::List children;
    for (int index = 0; index < 300; ++index)
        children.push_back(node(index % 7 == 0 ? LWDocument::Folder : LWDocument::File,
                                QStringLiteral("item%1").arg(random.bounded(1000))));
    LWOutlineOrder order;
    for (int round = 0; round < 20; ++round) {
        const LWDocument::List before = order.sorted(children);
        LWOutlineOrder::Snapshot snapshot;
        for (const LWDocument::Ptr &child : children)
            snapshot.emplace_back(child.get(), child->label());
        children.erase(children.begin() + random.bounded(static_cast<int>(children.size())));
        children[random.bounded(static_cast<int>(children.size()))]->setLabel(QStringLiteral("Renamed%1").arg(round));
        for (int added = 0; added < round * 4; ++added)
            children.push_back(node(LWDocument::File, QStringLiteral("new%1").arg(random.bounded(500))));
        QCOMPARE(labels(order.updated(before, snapshot, children)), labels(order.sorted(children)));
    }
}

void tst_LWOutlineOrder::dropsNeedAFolderOnDiskWithoutThatName()
{
    const LWDocument::Ptr folder = node(LWDocument::Folder, QStringLiteral("lib"), QStringLiteral("/p/lib"));
    folder->addChildDocument(node(LWDocument::File, QStringLiteral("a.txt"), QStringLiteral("/p/lib/a.txt")));
    QVERIFY(LWOutlineDrop::accepts(folder, {QStringLiteral("/elsewhere/b.txt")}));
    QVERIFY(!LWOutlineDrop::accepts(folder, {QStringLiteral("/elsewhere/a.txt")}));
    QVERIFY(!LWOutlineDrop::accepts(folder, {}));
    QVERIFY(!LWOutlineDrop::accepts(node(LWDocument::File, QStringLiteral("f"), QStringLiteral("/p/f")),
                                    {QStringLiteral("/elsewhere/b.txt")}));
    QVERIFY(!LWOutlineDrop::accepts(node(LWDocument::Group, QStringLiteral("FILES")), {QStringLiteral("/x/b.txt")}));
    QVERIFY(!LWOutlineDrop::accepts(nullptr, {QStringLiteral("/x/b.txt")}));
}

QTEST_GUILESS_MAIN(tst_LWOutlineOrder)
#include "tst_LWOutlineOrder.moc"
