#include "search/ui/QuickOpen.h"

#include "search/ui/FuzzyPopup.h"
#include "search/ui/WorkspaceOpener.h"

#include <QLineEdit>

QuickOpen::QuickOpen(QWidget *window, Tree tree, const WorkspaceOpener *opener)
    : QObject(window), tree(std::move(tree)), opener(opener),
      filePopup(new FuzzyPopup(window, tr("Type part of a file name")))
{
    filePopup->setObjectName(QStringLiteral("quickOpenPopup"));
    connect(filePopup, &FuzzyPopup::queryChanged, &search, &BackgroundFuzzySearch::search);
    connect(filePopup, &FuzzyPopup::chosen, this, &QuickOpen::openRow);
    connect(&search, &BackgroundFuzzySearch::resultsReady, this,
            [this](const QString &, const std::vector<FuzzyRanking::Result> &results,
                   const FuzzyRanking::Candidates &candidates) { showResults(results, candidates); });
    connect(&index, &WorkspaceFileIndex::rebuilt, this, &QuickOpen::indexRebuilt);
}

void QuickOpen::show()
{
    filePopup->open();
    refreshIndex();
    if (index.isBuilding() && index.files()->empty()) {
        filePopup->setMessage(tr("Listing the workspace's files..."));
        return;
    }
    search.setCandidates(index.candidates());
    search.search(filePopup->field()->text());
}

void QuickOpen::refreshIndex()
{
    if (const LWDocumentTree *workspace = tree())
        index.refresh(*workspace);
}

void QuickOpen::indexRebuilt()
{
    search.setCandidates(index.candidates());
    if (filePopup->isVisible())
        search.search(filePopup->field()->text());
}

// Results ranked over a list the index has since replaced are dropped: the
// search that follows the rebuild brings the current ones.
void QuickOpen::showResults(const std::vector<FuzzyRanking::Result> &results,
                            const FuzzyRanking::Candidates &candidates)
{
    if (candidates != index.candidates() || !filePopup->isVisible())
        return;
    if (results.empty()) {
        shownPaths.clear();
        filePopup->setMessage(index.files()->empty() ? tr("The workspace has no files") : tr("No matching file"));
        return;
    }
    QVector<FuzzyPopupRow> rows;
    shownPaths.clear();
    for (const FuzzyRanking::Result &result : results) {
        const FuzzyMatcher::Candidate &candidate = (*candidates)[result.candidate];
        const QString name = candidate.text.mid(candidate.nameStart);
        const QString folder = candidate.text.left(candidate.nameStart);
        const QVector<int> &letters = result.match.positions;
        rows.append({QStringLiteral("%1<br><small class=\"detail\">%2</small>")
                         .arg(FuzzyPopup::emphasized(name, letters, candidate.nameStart),
                              FuzzyPopup::emphasized(folder, letters)),
                     QString(), true});
        shownPaths.append((*index.files())[result.candidate].fullPath);
    }
    filePopup->setRows(rows);
}

void QuickOpen::openRow(int row)
{
    if (row >= 0 && row < shownPaths.size())
        opener->open(shownPaths.at(row));
}
