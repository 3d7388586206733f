#pragma once

#include "search/FuzzyRanking.h"

#include <QObject>
#include <QPointer>
#include <QVector>

class FuzzyPopup;
class QAction;
class QMenu;
class QMenuBar;

// The command palette: every command of the menu bar, found by fuzzy
// matching "Menu > Submenu > Title", run by choosing it. The menus are read
// each time the palette opens, so commands added later (plugins, a new
// menu) are offered too; disabled commands are listed dimmed and cannot be
// chosen.
class CommandPalette : public QObject
{
    Q_OBJECT

public:
    static constexpr int ResultsShown = 50;

    explicit CommandPalette(QMenuBar *menus, QWidget *window);

    void show();
    FuzzyPopup *popup() const { return commandPopup; }

private:
    struct Command
    {
        QPointer<QAction> action;
        QString path;
        int titleStart;
    };

    void collect(QMenu *menu, const QString &path);
    void filter(const QString &query);
    void run(int row);

    QMenuBar *menus;
    FuzzyPopup *commandPopup;
    QVector<Command> commands;
    FuzzyRanking ranking;
    std::vector<FuzzyRanking::Result> shown;
};
