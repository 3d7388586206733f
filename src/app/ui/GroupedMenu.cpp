#include "app/ui/GroupedMenu.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QMap>
#include <QMenu>
#include <QScreen>

#include <algorithm>

namespace GroupedMenu {

namespace {

// Room kept for the menu's frame and for the window's position on screen.
constexpr int screenMargin = 80;
constexpr int rowPadding = 8;
constexpr int fewestRows = 8;

QString titleOf(const QVariant &description)
{
    return description.toMap().value(QStringLiteral("title")).toString();
}

QVariantList sortedByTitle(QVariantList descriptions)
{
    std::stable_sort(descriptions.begin(), descriptions.end(), [](const QVariant &left, const QVariant &right) {
        return QString::localeAwareCompare(titleOf(left).toLower(), titleOf(right).toLower()) < 0;
    });
    return descriptions;
}

QString initialOf(const QVariant &description)
{
    const QString title = titleOf(description);
    return title.isEmpty() || !title.at(0).isLetter() ? QStringLiteral("#") : title.left(1).toUpper();
}

void addAll(QMenu *menu, const QVariantList &descriptions, const AddItem &add)
{
    for (const QVariant &description : descriptions)
        add(menu, description.toMap());
}

// Consecutive runs of the sorted items by initial letter, each run within
// `rows`; a single letter with more items becomes several parts.
QList<QPair<QString, QVariantList>> letterRuns(const QVariantList &sorted, int rows)
{
    QList<QPair<QString, QVariantList>> runs;
    QString first, last;
    QVariantList run;
    const auto close = [&] {
        if (!run.isEmpty())
            runs.append({first == last ? first : first + QChar(0x2013) + last, run});
        run.clear();
    };
    for (int i = 0; i < sorted.size();) {
        const QString letter = initialOf(sorted.at(i));
        int end = i;
        while (end < sorted.size() && initialOf(sorted.at(end)) == letter)
            ++end;
        const QVariantList sameLetter = sorted.mid(i, end - i);
        if (run.size() + sameLetter.size() > rows)
            close();
        if (sameLetter.size() > rows) {
            for (int part = 0; part * rows < sameLetter.size(); ++part)
                runs.append({QStringLiteral("%1 (%2)").arg(letter).arg(part + 1), sameLetter.mid(part * rows, rows)});
        } else {
            if (run.isEmpty())
                first = letter;
            last = letter;
            run.append(sameLetter);
        }
        i = end;
    }
    close();
    return runs;
}

}

int rowsThatFit(const QMenu *menu)
{
    const QScreen *screen = menu->screen() ? menu->screen() : QGuiApplication::primaryScreen();
    const int height = screen ? screen->availableGeometry().height() : 600;
    const int row = QFontMetrics(menu->font()).height() + rowPadding;
    return std::max(fewestRows, (height - screenMargin) / row);
}

void addByLetter(QMenu *menu, const QVariantList &descriptions, const AddItem &add)
{
    const QVariantList sorted = sortedByTitle(descriptions);
    const int rows = rowsThatFit(menu);
    if (sorted.size() <= rows) {
        addAll(menu, sorted, add);
        return;
    }
    for (const auto &run : letterRuns(sorted, rows))
        addAll(menu->addMenu(run.first), run.second, add);
}

void addByGroup(QMenu *menu, const QVariantList &descriptions, const QStringList &groups,
                const std::function<QString(const QVariantMap &)> &groupOf, const AddItem &add)
{
    QMap<QString, QVariantList> members;
    for (const QVariant &description : descriptions)
        members[groupOf(description.toMap())].append(description);
    for (const QString &group : groups) {
        if (!members.value(group).isEmpty())
            addByLetter(menu->addMenu(group), members.value(group), add);
    }
}

}
