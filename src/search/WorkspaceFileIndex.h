#pragma once

#include "search/FuzzyRanking.h"
#include "search/WorkspaceFiles.h"

#include <QObject>

class LWDocumentTree;

// The workspace's files with their match candidates, kept for quick open.
// refresh() walks the tree only when it has changed since the last walk and
// prepares the candidates on a pool thread; until they are ready the index
// answers with the previous ones.
class WorkspaceFileIndex : public QObject
{
    Q_OBJECT

public:
    using Files = std::shared_ptr<const WorkspaceFiles::List>;

    explicit WorkspaceFileIndex(QObject *parent = nullptr);

    void refresh(const LWDocumentTree &tree);
    bool isBuilding() const { return building; }

    // Candidate i is file i.
    const Files &files() const { return fileList; }
    const FuzzyRanking::Candidates &candidates() const { return candidateList; }

signals:
    void rebuilt();

private:
    QString builtStamp;
    bool building = false;
    Files fileList = std::make_shared<const WorkspaceFiles::List>();
    FuzzyRanking::Candidates candidateList = std::make_shared<const std::vector<FuzzyMatcher::Candidate>>();
};
