#include "search/WorkspaceFileIndex.h"

#include "search/PoolTask.h"

WorkspaceFileIndex::WorkspaceFileIndex(QObject *parent) : QObject(parent) {}

void WorkspaceFileIndex::refresh(const LWDocumentTree &tree)
{
    const QString stamp = WorkspaceFiles::stampOf(tree);
    if (stamp == builtStamp)
        return;
    builtStamp = stamp;
    building = true;
    auto files = std::make_shared<const WorkspaceFiles::List>(WorkspaceFiles::collect(tree));
    using Built = FuzzyRanking::Candidates;
    PoolTask::run<Built>(
        this,
        [files]() -> Built {
            return std::make_shared<const std::vector<FuzzyMatcher::Candidate>>(WorkspaceFiles::candidates(*files));
        },
        [this, files, stamp](Built candidates) {
            if (stamp != builtStamp)
                return; // a newer walk is being prepared
            fileList = files;
            candidateList = std::move(candidates);
            building = false;
            emit rebuilt();
        });
}
