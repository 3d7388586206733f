#pragma once

#include <QString>
#include <QVariantList>

#include <functional>

class QMenu;

// Long lists of menu items (bundle descriptions with a "title") sorted by
// title and split into submenus that fit on the screen, so no menu runs off
// its bottom edge.
namespace GroupedMenu {

// Makes and appends the item for one description.
using AddItem = std::function<void(QMenu *menu, const QVariantMap &description)>;

// The rows a menu can show on the screen it opens on.
int rowsThatFit(const QMenu *menu);

// The items straight in menu when they fit; otherwise one submenu per run of
// initial letters ("A–C", "D"), a letter with too many items split in parts.
void addByLetter(QMenu *menu, const QVariantList &descriptions, const AddItem &add);

// One submenu per group that groupOf names, in the order of groups, each
// filled by addByLetter. Groups without items are left out.
void addByGroup(QMenu *menu, const QVariantList &descriptions, const QStringList &groups,
                const std::function<QString(const QVariantMap &)> &groupOf, const AddItem &add);

}
