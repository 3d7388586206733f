#pragma once

#include <QImage>
#include <QString>

#include <memory>

// A node's icon at sidebar size together with its dimmed rendering (shown
// while the node has unsaved changes). Pairs are shared between nodes.
struct LWIconPair
{
    QImage icon;
    QImage dimmed;
};

// The icons of workspace entries. This system has no per-file icons, so one
// drawn file icon and one folder icon serve for every entry; both are shared
// by all nodes rather than copied into each. The icon of any file on disk is
// therefore regularFile().
namespace LWDocumentIcons {

constexpr int Side = 15;

QImage regularFile();
QImage folder();

// The image at 15 x 15 with its dimmed rendering; the shared pair when the
// image is one of the icons above.
std::shared_ptr<const LWIconPair> pairFor(const QImage &image);

}
