#pragma once

#include <QObject>

class QAction;

// The Find menu: find, replace and the search options. The option toggles
// store their default first and then tell the page; the scope items only
// store it. Items carry their action's name as object name.
class LWFindMenuController : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // "Use Selection for Find" is enabled only while the editor has a
    // selection; the options and scopes are checked from their defaults.
    Q_INVOKABLE bool validateMenuItem(QAction *item) const;

public slots:
    void findAction(QAction *sender = nullptr);
    void findNextAction(QAction *sender = nullptr);
    void findPreviousAction(QAction *sender = nullptr);
    void replaceAction(QAction *sender = nullptr);
    void replaceAllAction(QAction *sender = nullptr);
    void useSelectionForFindAction(QAction *sender = nullptr);
    void useRegularExpressionsToggle(QAction *sender = nullptr);
    void caseSensitiveToggle(QAction *sender = nullptr);
    void matchWholeWordToggle(QAction *sender = nullptr);
    void documentScopeSwitch(QAction *sender = nullptr);
    void selectionScopeSwitch(QAction *sender = nullptr);
};
