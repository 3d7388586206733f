#include "search/ui/CommandPalette.h"

#include "search/ui/FuzzyPopup.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

namespace {

const QString PathSeparator = QStringLiteral(" > ");

// A menu title without its mnemonic marks ("&File" is "File", "&&" is "&").
QString plainTitle(const QString &title)
{
    QString plain = title;
    plain.replace(QLatin1String("&&"), QStringLiteral("\x01"));
    plain.remove(QLatin1Char('&'));
    return plain.replace(QLatin1Char('\x01'), QLatin1Char('&'));
}

}

CommandPalette::CommandPalette(QMenuBar *menus, QWidget *window)
    : QObject(window), menus(menus), commandPopup(new FuzzyPopup(window, tr("Type part of a command")))
{
    commandPopup->setObjectName(QStringLiteral("commandPalettePopup"));
    connect(commandPopup, &FuzzyPopup::queryChanged, this, &CommandPalette::filter);
    connect(commandPopup, &FuzzyPopup::chosen, this, &CommandPalette::run);
}

void CommandPalette::show()
{
    commands.clear();
    for (QAction *top : menus->actions())
        if (top->menu())
            collect(top->menu(), plainTitle(top->text()));
    auto candidates = std::make_shared<std::vector<FuzzyMatcher::Candidate>>();
    for (const Command &command : commands)
        candidates->push_back(FuzzyMatcher::Candidate::of(command.path, command.titleStart));
    ranking = FuzzyRanking(candidates);
    commandPopup->open();
    filter(QString());
}

// Opening a menu is when its items are brought up to date (enabled state,
// lists such as the recent files), so each menu is told it opens first.
void CommandPalette::collect(QMenu *menu, const QString &path)
{
    emit menu->aboutToShow();
    for (QAction *item : menu->actions()) {
        if (item->isSeparator() || !item->isVisible() || item->text().isEmpty())
            continue;
        const QString title = plainTitle(item->text());
        if (item->menu()) {
            collect(item->menu(), path + PathSeparator + title);
        } else if (!item->objectName().startsWith(QLatin1String("commandPalette"))) {
            const QString prefix = path + PathSeparator;
            commands.append({item, prefix + title, static_cast<int>(prefix.size())});
        }
    }
}

void CommandPalette::filter(const QString &query)
{
    shown = ranking.rank(query, ResultsShown);
    QVector<FuzzyPopupRow> rows;
    for (const FuzzyRanking::Result &result : shown) {
        const Command &command = commands.at(result.candidate);
        const QAction *action = command.action;
        rows.append({FuzzyPopup::emphasized(command.path, result.match.positions),
                     action ? action->shortcut().toString(QKeySequence::NativeText) : QString(),
                     action && action->isEnabled()});
    }
    if (rows.isEmpty())
        commandPopup->setMessage(tr("No matching command"));
    else
        commandPopup->setRows(rows);
}

// The command runs once the palette has gone, as a menu item runs after its
// menu has closed.
void CommandPalette::run(int row)
{
    if (row < 0 || row >= static_cast<int>(shown.size()))
        return;
    QAction *action = commands.at(shown[row].candidate).action;
    if (!action || !action->isEnabled())
        return;
    QTimer::singleShot(0, action, &QAction::trigger);
}
