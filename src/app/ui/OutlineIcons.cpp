#include "app/ui/OutlineIcons.h"

#include "documents/LWDocument.h"

#include <QPainter>

namespace {

constexpr qreal DimmedOpacity = 0.4;

QPixmap dimmedCopy(const QPixmap &icon)
{
    QPixmap dimmed(icon.size());
    dimmed.setDevicePixelRatio(icon.devicePixelRatio());
    dimmed.fill(Qt::transparent);
    QPainter painter(&dimmed);
    painter.setOpacity(DimmedOpacity);
    painter.drawPixmap(0, 0, icon);
    return dimmed;
}

}

QPixmap OutlineIcons::iconFor(const LWDocument &node)
{
    if (node.isGroup())
        return {};
    if (!node.isFile())
        return pairForType(QStringLiteral("inode/directory"), [this] { return provider.icon(QFileIconProvider::Folder); }).normal;
    // The type is told by the name alone: reading 200000 files to show a folder would be far too slow.
    const QMimeType type = types.mimeTypeForFile(node.label(), QMimeDatabase::MatchExtension);
    const Pair &pair = pairForType(type.name(), [this, &type] { return fileIcon(type); });
    return node.saved() ? pair.normal : pair.dimmed;
}

QIcon OutlineIcons::fileIcon(const QMimeType &type) const
{
    const QIcon generic = QIcon::fromTheme(type.genericIconName(), provider.icon(QFileIconProvider::File));
    return QIcon::fromTheme(type.iconName(), generic);
}

const OutlineIcons::Pair &OutlineIcons::pairForType(const QString &typeName, const std::function<QIcon()> &makeIcon)
{
    auto found = pairs.find(typeName);
    if (found == pairs.end()) {
        const QPixmap normal = makeIcon().pixmap(Side, Side);
        found = pairs.insert(typeName, {normal, dimmedCopy(normal)});
    }
    return found.value();
}
