#pragma once

#include "documents/LWDocumentTree.h"

#include <QObject>
#include <QStringList>

#include <memory>

// Owns the workspace tree and knows which node is in the editor. Switching
// the editor between nodes saves the outgoing node's text and cursor state
// and loads the incoming node, or shows a preview for an image. At start-up
// it imports the remembered paths on a background thread while the sidebar
// fills in.
class LWDocumentWatcher;

class LWDocumentManager : public QObject
{
    Q_OBJECT

public:
    LWDocumentManager();
    ~LWDocumentManager() override;

    // The manager in use, or nullptr before the application has one.
    static LWDocumentManager *shared();
    static void setShared(LWDocumentManager *manager);

    // A workspace of one untitled file, which becomes the current document.
    static std::unique_ptr<LWDocumentManager> newWithUntitled();
    // An empty workspace that imports the paths in the background; a tab for
    // an untitled file outside the tree is shown meanwhile.
    static std::unique_ptr<LWDocumentManager> newWithPaths(const QStringList &paths);

    // The workspace of the last run: the remembered paths that still exist,
    // imported as by newWithPaths, or one untitled file when none is left.
    static std::unique_ptr<LWDocumentManager> newWithRememberedWorkspace();
    // Stores the paths to reopen ("LW_PreviouslyOpened") and writes the
    // settings out at once.
    void rememberWorkspace() const;

    // A manager over a copy of this one's tree, without a current document.
    std::unique_ptr<LWDocumentManager> copy() const;

    LWDocumentTree &documentTree() { return tree; }
    const LWDocumentTree &documentTree() const { return tree; }
    LWDocument::Ptr currentDocument() const { return current; }
    // Stores a copy of the node; switchToDoc stores the node itself.
    void setCurrentDocument(const LWDocument::Ptr &document);

    // Moves the editor to the node, and the language pop-up and plugin menus
    // to its specification. Asked again while a switch runs, it switches
    // once that one is done.
    void switchToDoc(const LWDocument::Ptr &document);
    // The last tab was closed: the outgoing node keeps its text and cursor
    // state, and the editor shows an empty read-only page until a document
    // is opened again. No node is current meanwhile.
    void showNoDocument();
    // Reads the node's file again and shows the new text if it is in the editor.
    void reloadFromDisk(const LWDocument::Ptr &document);

    // Image files are shown as pictures, never as text: the editor's text
    // is not theirs, and saving them is never offered.
    static bool showsAsImage(const LWDocument::Ptr &document);

signals:
    // The background import of newWithPaths has handled its last path.
    void importFinished();

private:
    void importInBackground(const QStringList &paths);
    void adoptImported(const QString &path, const LWDocument::Ptr &node, bool isLast);
    void showInEditor(const LWDocument::Ptr &document);
    void showSpecOf(const LWDocument &document);
    void storeOutgoingState();
    void loadIntoEditor(const LWDocument::Ptr &document);

    LWDocumentTree tree = LWDocumentTree::emptyTree();
    LWDocument::Ptr current;
    bool switching = false;
    LWDocument::Ptr queuedSwitch;
    std::unique_ptr<LWDocumentWatcher> watcher;
};
