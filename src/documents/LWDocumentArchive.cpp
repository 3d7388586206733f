#include "documents/LWDocumentArchive.h"

#include <QDataStream>
#include <QIODevice>
#include <QImage>
#include <QtDebug>

namespace LWDocumentArchive {

namespace {

const QByteArray Magic = QByteArrayLiteral("LWDocument/1");
// Deeper nesting than any real folder tree marks damaged data, before the
// recursion could exhaust the stack.
constexpr int MaximumDepth = 4096;

void write(QDataStream &stream, const LWDocument &node, bool hasParent)
{
    stream << node.label() << quint32(node.children().size());
    for (const LWDocument::Ptr &child : node.children())
        write(stream, *child, child->parent().get() == &node);
    stream << qint32(node.type()) << node.icon() << node.path() << node.fullPath() << node.specName()
           << bool(node.content()) << node.content().value_or(QString()) << node.saved() << node.readOnly()
           << hasParent;
}

LWDocument::Ptr read(QDataStream &stream, int depth)
{
    if (depth > MaximumDepth)
        stream.setStatus(QDataStream::ReadCorruptData);
    LWDocument::Ptr node = LWDocument::createBare();
    QString label;
    quint32 childCount = 0;
    stream >> label >> childCount;
    node->setLabel(label);
    LWDocument::List children;
    std::vector<bool> childHasParent;
    for (quint32 index = 0; index < childCount && stream.status() == QDataStream::Ok; ++index) {
        children.push_back(read(stream, depth + 1));
        bool hasParent = false;
        stream >> hasParent;
        childHasParent.push_back(hasParent);
    }
    node->setChildren(children);
    for (size_t index = 0; index < children.size(); ++index) {
        if (childHasParent[index])
            children[index]->setParent(node);
    }
    qint32 type = 0;
    QImage icon;
    QString path, fullPath, specName, content;
    bool hasContent = false, saved = true, readOnly = false;
    stream >> type >> icon >> path >> fullPath >> specName >> hasContent >> content >> saved >> readOnly;
    node->setType(quint64(type));
    node->setIcon(icon);
    node->setPath(path);
    node->setFullPath(fullPath);
    node->setSpecName(specName);
    node->setContent(hasContent ? std::optional<QString>(content) : std::nullopt);
    node->setSaved(saved);
    node->setReadOnly(readOnly);
    return node;
}

}

QByteArray archive(const LWDocument &node)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream << Magic;
    write(stream, node, false);
    return data;
}

LWDocument::Ptr unarchive(const QByteArray &data)
{
    QDataStream stream(data);
    QByteArray magic;
    stream >> magic;
    if (magic != Magic) {
        qWarning("LWDocumentArchive : not an archived document");
        return nullptr;
    }
    LWDocument::Ptr node = read(stream, 0);
    bool rootHasParent = false;
    stream >> rootHasParent;
    if (stream.status() != QDataStream::Ok) {
        qWarning("LWDocumentArchive : archived document is cut short or damaged");
        return nullptr;
    }
    return node;
}

}
