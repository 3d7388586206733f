#pragma once

#include "search/BackgroundFuzzySearch.h"
#include "search/WorkspaceFileIndex.h"

#include <QObject>

class FuzzyPopup;
class WorkspaceOpener;

// Quick open: a popup that finds workspace files by fuzzy-matching their
// paths as the user types and opens the one chosen. The file index is
// refreshed each time the popup opens after the workspace has changed.
class QuickOpen : public QObject
{
    Q_OBJECT

public:
    static constexpr int ResultsShown = 50;

    using Tree = std::function<const LWDocumentTree *()>;

    QuickOpen(QWidget *window, Tree tree, const WorkspaceOpener *opener);

    void show();
    // Brings the file index up to date in the background, so that the popup
    // opens on the current files.
    void refreshIndex();
    FuzzyPopup *popup() const { return filePopup; }

private:
    void indexRebuilt();
    void showResults(const std::vector<FuzzyRanking::Result> &results, const FuzzyRanking::Candidates &candidates);
    void openRow(int row);

    Tree tree;
    const WorkspaceOpener *opener;
    FuzzyPopup *filePopup;
    WorkspaceFileIndex index;
    BackgroundFuzzySearch search{ResultsShown};
    QStringList shownPaths;
};
