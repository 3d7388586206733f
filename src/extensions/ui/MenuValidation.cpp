#include "extensions/ui/MenuValidation.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QPointer>

#include <algorithm>
#include <vector>

namespace MenuValidation {

namespace {

// Calls fn for every item of the menu and of its submenus, depth first.
template <typename Fn>
void forEachItem(QMenu *menu, const Fn &fn)
{
    for (QAction *item : menu->actions()) {
        if (item->isSeparator())
            continue;
        if (item->menu())
            forEachItem(item->menu(), fn);
        else
            fn(item);
    }
}

struct ValidatedMenu
{
    QPointer<QMenu> menu;
    Validator validator;
};

// Watches every key press of the application for the keys of validated items.
class ShortcutWatcher : public QObject
{
public:
    static ShortcutWatcher &instance()
    {
        static QPointer<ShortcutWatcher> watcher;
        if (!watcher)
            watcher = new ShortcutWatcher(QCoreApplication::instance());
        return *watcher;
    }

    void add(QMenu *menu, Validator validator) { menus.push_back({menu, std::move(validator)}); }

protected:
    // A key press reaches the focus widget as a shortcut override before the
    // shortcut map looks for an enabled item with that key.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ShortcutOverride)
            validateItemsWithKey(QKeySequence(static_cast<QKeyEvent *>(event)->keyCombination()));
        return QObject::eventFilter(watched, event);
    }

private:
    explicit ShortcutWatcher(QObject *parent) : QObject(parent) { parent->installEventFilter(this); }

    void validateItemsWithKey(const QKeySequence &key)
    {
        menus.erase(std::remove_if(menus.begin(), menus.end(),
                                   [](const ValidatedMenu &entry) { return entry.menu.isNull(); }),
                    menus.end());
        for (const ValidatedMenu &entry : menus) {
            forEachItem(entry.menu.data(), [&](QAction *item) {
                if (item->shortcuts().contains(key))
                    item->setEnabled(entry.validator(item));
            });
        }
    }

    std::vector<ValidatedMenu> menus;
};

// Opening the menu validates everything under it; a submenu that can also be
// opened on its own (a status bar pop-up showing it) validates its part.
void validateWhenShown(QMenu *menu, const Validator &validator)
{
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu, validator] {
        forEachItem(menu, [&](QAction *item) { item->setEnabled(validator(item)); });
    });
    for (QAction *item : menu->actions()) {
        if (item->menu())
            validateWhenShown(item->menu(), validator);
    }
}

}

void install(QMenu *menu, Validator validator)
{
    validateWhenShown(menu, validator);
    ShortcutWatcher::instance().add(menu, std::move(validator));
}

}
