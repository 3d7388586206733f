#pragma once

#include <QString>
#include <QVariant>

class QObject;

// Menu description dictionaries: an item has "title", "selector" (the action
// name as text), "object" (what the item stands for) and "equivalent" (an
// encoded key equivalent, "" for none); title "--" is a separator; "title" with
// "children" is a submenu.
namespace LWMenuItems {

QVariantMap item(const QString &title, const QString &selector, const QVariant &object,
                 const QString &equivalent);
// A separator with the other three keys as empty texts.
QVariantMap separator();
QVariantMap submenu(const QString &title, const QVariantList &children);

bool isSeparator(const QVariantMap &entry);
bool isSubmenu(const QVariantMap &entry);

// A bundle as an item's "object".
QVariant objectValue(QObject *bundle);

}
