#pragma once

#include "documents/LWDocument.h"

#include "documents/SettlingChanges.h"

#include <QFileSystemWatcher>
#include <QObject>

#include <map>

class LWDocumentManager;

// Watches the files of the documents opened in the editor and, a moment
// after other programs stop changing one, brings its document in line: a
// document without unsaved changes takes the file's new text; one with
// unsaved changes asks the user whether to keep it or load the file; a
// removed or renamed file leaves its document unsaved and says so, so that
// its text can be saved again but is never written back silently.
class LWDocumentWatcher : public QObject
{
public:
    explicit LWDocumentWatcher(LWDocumentManager &manager);

    void watch(const LWDocument::Ptr &document);

    // How long the watcher waits after the last change before it acts.
    static constexpr int settleMilliseconds = 250;

private:
    void examineChanges(const QSet<QString> &paths);
    void examine(const LWDocument::Ptr &document);
    void askKeepOrLoad(const LWDocument::Ptr &document);

    LWDocumentManager &manager;
    QFileSystemWatcher files;
    SettlingChanges changes;
    std::map<QString, std::weak_ptr<LWDocument>> documents;
};
