#pragma once

#include <QFileIconProvider>
#include <QHash>
#include <QMimeDatabase>
#include <QPixmap>

#include <functional>

class LWDocument;

// The sidebar's icons: one per file type (taken from the desktop's icon
// theme by the type's name, else the generic file icon) and one for folders,
// each drawn once at 15 x 15 together with a dimmed copy for nodes with
// unsaved changes. Nodes share them; nothing is kept per node.
class OutlineIcons
{
public:
    static constexpr int Side = 15;

    QPixmap iconFor(const LWDocument &node);

private:
    struct Pair
    {
        QPixmap normal;
        QPixmap dimmed;
    };

    const Pair &pairForType(const QString &typeName, const std::function<QIcon()> &makeIcon);
    QIcon fileIcon(const QMimeType &type) const;

    QMimeDatabase types;
    QFileIconProvider provider;
    QHash<QString, Pair> pairs;
};
