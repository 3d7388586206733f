#include "extensions/ui/LWMenuOperations.h"

#include "extensions/LWKeyShortcut.h"
#include "extensions/LWMenuItems.h"

#include <QAction>
#include <QMenu>
#include <QMetaObject>
#include <QPointer>
#include <QtDebug>

namespace LWMenuOperations {

namespace {

QString text(const QVariantMap &entry, const char *key)
{
    return entry.value(QLatin1String(key)).toString();
}

// Calls the target's slot named by the selector, with the action when the
// slot takes one.
void dispatch(QObject *target, const QString &selector, QAction *action)
{
    if (!target || selector.isEmpty())
        return;
    const QByteArray slot = selector.section(QLatin1Char(':'), 0, 0).toLatin1();
    if (QMetaObject::invokeMethod(target, slot.constData(), Qt::DirectConnection, Q_ARG(QAction *, action)))
        return;
    if (!QMetaObject::invokeMethod(target, slot.constData(), Qt::DirectConnection))
        qWarning("LWMenuOperations :: no action %s on %s", slot.constData(), target->metaObject()->className());
}

void addEntry(QMenu *menu, const QVariantMap &entry, QObject *target, bool withObject)
{
    if (LWMenuItems::isSeparator(entry)) {
        addSeparator(menu);
        return;
    }
    addItemWithTitle(menu, text(entry, "title"), text(entry, "selector"), text(entry, "equivalent"), target,
                     withObject ? entry.value(QStringLiteral("object")) : QVariant());
}

void addArray(QMenu *menu, const QVariantList &items, QObject *target, bool withObject)
{
    for (const QVariant &item : items)
        addEntry(menu, item.toMap(), target, withObject);
}

void addDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target, bool withObject)
{
    for (auto it = dictionary.cbegin(); it != dictionary.cend(); ++it)
        addArray(menu->addMenu(it.key()), it.value().toList(), target, withObject);
}

}

QKeySequence keySequenceForShortcut(const QString &shortcut)
{
    if (shortcut.isEmpty())
        return {};
    const QVariantMap decoded = LWKeyShortcut::decodeKeyShortcut(shortcut);
    const int mask = decoded.value(QStringLiteral("keyModifier")).toInt();
    QStringList parts;
    if (mask & LWKeyShortcut::Command)
        parts << QStringLiteral("Ctrl");
    if (mask & LWKeyShortcut::Control)
        parts << QStringLiteral("Meta");
    if (mask & LWKeyShortcut::Option)
        parts << QStringLiteral("Alt");
    if (mask & LWKeyShortcut::Shift)
        parts << QStringLiteral("Shift");
    parts << decoded.value(QStringLiteral("keyEquivalent")).toString().toUpper();
    return QKeySequence::fromString(parts.join(QLatin1Char('+')), QKeySequence::PortableText);
}

void addSeparator(QMenu *menu)
{
    menu->addSeparator();
}

QAction *addItemWithTitle(QMenu *menu, const QString &title, const QString &selector,
                          const QString &keyEquivalent, QObject *target, const QVariant &representedObject)
{
    QAction *action = menu->addAction(title);
    action->setShortcut(keySequenceForShortcut(keyEquivalent));
    action->setData(representedObject);
    QObject::connect(action, &QAction::triggered, action,
                     [target = QPointer<QObject>(target), selector, action] { dispatch(target, selector, action); });
    return action;
}

void addItemsWithTitles(QMenu *menu, const QStringList &titles, const QStringList &selectors,
                        const QStringList &keyEquivalents, QObject *target)
{
    for (int i = 0; i < titles.size(); ++i)
        addItemWithTitle(menu, titles.at(i), selectors.value(i), keyEquivalents.value(i), target);
}

void addItemsFromArray(QMenu *menu, const QVariantList &items, QObject *target)
{
    addArray(menu, items, target, false);
}

void addObjectItemsFromArray(QMenu *menu, const QVariantList &items, QObject *target)
{
    addArray(menu, items, target, true);
}

void addItemsFromDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target)
{
    addDictionary(menu, dictionary, target, false);
}

void addObjectItemsFromDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target)
{
    addDictionary(menu, dictionary, target, true);
}

void addRepresentedItemsFromDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target)
{
    addObjectItemsFromDictionary(menu, dictionary, target);
}

void addItemsFromNestedArray(QMenu *menu, const QVariantList &items, QObject *target)
{
    for (const QVariant &item : items) {
        const QVariantMap entry = item.toMap();
        if (LWMenuItems::isSubmenu(entry))
            addItemsFromNestedArray(menu->addMenu(text(entry, "title")), entry.value(QStringLiteral("children")).toList(), target);
        else
            addEntry(menu, entry, target, true);
    }
}

void setItemsWithTitles(QMenu *menu, const QStringList &titles, const QStringList &selectors,
                        const QStringList &keyEquivalents, QObject *target)
{
    menu->clear();
    addItemsWithTitles(menu, titles, selectors, keyEquivalents, target);
}

void setItemsFromArray(QMenu *menu, const QVariantList &items, QObject *target)
{
    menu->clear();
    addItemsFromArray(menu, items, target);
}

void setItemsFromDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target)
{
    menu->clear();
    addItemsFromDictionary(menu, dictionary, target);
}

void removeAllItemsExceptForFirst(QMenu *menu, int count)
{
    while (menu->actions().size() > qMax(count, 0)) {
        QAction *last = menu->actions().last();
        menu->removeAction(last);
        // Submenus made by addMenu() own their own menu action.
        if (QMenu *submenu = last->menu(); submenu && submenu->parent() == menu)
            delete submenu;
        else if (last->parent() == menu)
            delete last;
    }
}

QAction *itemWithPath(QMenu *menu, const QString &path)
{
    QStringList parts = path.split(QLatin1Char('/'));
    const QString first = parts.takeFirst();
    for (QAction *action : menu->actions()) {
        if (action->text() != first)
            continue;
        if (parts.isEmpty())
            return action;
        return action->menu() ? itemWithPath(action->menu(), parts.join(QString())) : nullptr;
    }
    return nullptr;
}

}
