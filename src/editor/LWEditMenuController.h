#pragma once

#include <QObject>

class QAction;

// The Edit menu: selection, indentation, line moves and comments, each one
// fixed script string sent to the editor page. Every item is enabled.
class LWEditMenuController : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    Q_INVOKABLE bool validateMenuItem(QAction *item) const;

public slots:
    void selectWordAction(QAction *sender = nullptr);
    void selectLineAction(QAction *sender = nullptr);
    void selectLineToBeginningAction(QAction *sender = nullptr);
    void selectLineToEndAction(QAction *sender = nullptr);
    void selectFileToBeginningAction(QAction *sender = nullptr);
    void selectFileToEndAction(QAction *sender = nullptr);
    void selectAllAction(QAction *sender = nullptr);
    void deselectAllAction(QAction *sender = nullptr);
    void indentAction(QAction *sender = nullptr);
    void outdentAction(QAction *sender = nullptr);
    void moveUpAction(QAction *sender = nullptr);
    // Moves the selected lines down; menu files bind to this exact name.
    void modeDownAction(QAction *sender = nullptr);
    void commentUncommentAction(QAction *sender = nullptr);
};
