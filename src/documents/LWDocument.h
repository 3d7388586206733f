#pragma once

#include "documents/LWDiskStamp.h"
#include "documents/LWStoredText.h"

#include <QImage>
#include <QString>

#include <limits>
#include <memory>
#include <optional>
#include <vector>

struct LWIconPair;
class LWDocumentFilterCache;

// One node of the workspace: a top-level group, a folder or a file. A node
// owns its children, knows its parent weakly, its place on disk and the
// language specification of its text, and loads, saves, renames and moves
// itself. Nodes are always held by shared pointers; create them with the
// factories. Towards the editor a node is identified by its address.
class LWDocument : public std::enable_shared_from_this<LWDocument>
{
public:
    using Ptr = std::shared_ptr<LWDocument>;
    using List = std::vector<Ptr>;

    enum Kind : quint64 { Group = 0, Folder = 1, File = 2, Unset = 3 };
    static constexpr quint64 NotFound = std::numeric_limits<quint64>::max();

    // A plain node: kind unset, saved, with the default spec for new documents.
    static Ptr create();
    // A node with every field at its bare value (no default spec); the
    // starting point of decoding an archive.
    static Ptr createBare();
    ~LWDocument();

    // Factories.
    static Ptr emptyFile();
    static Ptr emptyFileWithLabel(const QString &label);
    static Ptr fileWithContent(const QString &text);
    static Ptr fileWithLabel(const QString &label, const QString &text);
    static Ptr fileFromTemplate(const QString &name, const QString &text, const QString &ignoredFolder);
    static Ptr emptyFileInExistingDocument(const Ptr &parent);
    static Ptr fileInExistingDocument(const Ptr &parent, const QString &label, const QString &text);
    static Ptr emptyFolderInExistingDocument(const Ptr &parent);
    static Ptr fileFromPath(const QString &path, const QString &root = QString());
    static Ptr folderFromPath(const QString &path, const QString &root = QString());
    static Ptr groupFromPath(const QString &path);
    static Ptr filesGroup();

    // Fields.
    QString label() const { return labelValue; }
    void setLabel(const QString &label);
    const List &children() const { return childList; }
    void setChildren(const List &children);
    quint64 type() const { return kind; }
    void setType(quint64 type) { kind = type; }
    QImage icon() const;
    // Stores the image as it is, without a dimmed rendering (updateIcon
    // makes both).
    void setIcon(const QImage &icon);
    QImage dimmedIcon() const;
    QString path() const { return pathValue; }
    void setPath(const QString &path) { pathValue = path; }
    QString fullPath() const { return fullPathValue; }
    void setFullPath(const QString &fullPath) { fullPathValue = fullPath; }
    QString specName() const { return specNameValue; }
    void setSpecName(const QString &specName) { specNameValue = specName; }
    const std::optional<QString> &content() const { return contentValue; }
    // Setting the content forgets the tag under which the editor may hold the old one.
    void setContent(const std::optional<QString> &content);
    bool saved() const { return isSaved; }
    void setSaved(bool saved) { isSaved = saved; }
    bool readOnly() const { return isReadOnly; }
    void setReadOnly(bool readOnly) { isReadOnly = readOnly; }
    Ptr parent() const { return parentNode.lock(); }
    void setParent(const Ptr &parent) { parentNode = parent; }

    // Kind tests.
    bool isGroup() const { return kind == Group; }
    bool isFolder() const { return kind == Folder; }
    bool isFile() const { return kind == File; }
    bool isExpandable() const { return isGroup() || isFolder(); }
    bool isSelectable() const { return isFile() || isFolder(); }
    bool isUntitled() const { return fullPathValue.isEmpty(); }

    // The text that identifies this node towards the editor, which keeps each
    // document's session (text, undo history, cursor) under it. It is never
    // given to another node, even one that later takes this node's memory:
    // a new document must never inherit a closed one's session.
    QString identity() const;

    // Specification, location and icon.
    void updateSpecFromPath(const QString &path);
    void updatePath(const QString &fullPath);
    void updateIcon(const QImage &image);
    QImage getIcon() const;
    // The icon every node of this kind has on disk.
    QImage iconOfKind() const;

    // Content, saving and renaming. Saving answers whether the file now
    // holds the text: a failed save shows an alert naming the file and the
    // reason, and leaves the node unsaved. save() first takes the editor's
    // text; when the editor gives none, the text last known is written.
    // Text still as it was read is written back byte for byte, and changed
    // text keeps the file's byte-order mark.
    QString getContent();
    // Forgets the text and reads the file again; the node is then saved.
    void reloadFromDisk();
    bool save();
    bool saveWithoutState();
    void renameWithLabel(const QString &label);

    // The file as this node last read or wrote it; a file that differs now
    // was changed by another program. noteDiskStamp() accepts a new state
    // of the file as the one this node's text is based on.
    const LWDiskStamp &diskStamp() const { return diskStampValue; }
    void noteDiskStamp(const LWDiskStamp &stamp) { diskStampValue = stamp; }
    bool changedOnDisk() const { return !isUntitled() && LWDiskStamp::of(fullPathValue) != diskStampValue; }

    // The editor's JSON form and reading the editor's state back. A state
    // without text (no answer, not JSON, no "content" string) leaves the
    // content as it was, and says so in the log.
    QString toJson();
    void updateFromJson(const QString &json);
    // The form a switch sends: toJson() with the content's tag, and a content
    // that is large or that the page may already hold as a reference (which
    // the page follows only when it does not hold that tag).
    QString toEditorJson();
    // The script that reads the editor's state back without moving the text
    // when the page still holds exactly this node's content.
    QString editorStateQuery() const;

    // Children.
    void addChildDocument(const Ptr &child);
    void addChildDocument(const Ptr &child, quint64 index);
    void removeChildDocument(const Ptr &child);
    void moveChildDocument(const Ptr &child, quint64 targetIndex);
    void moveToParent(const Ptr &newParent, quint64 index = NotFound);
    void copyFilesToSelf(const List &documents, quint64 index = NotFound);
    void replaceChild(const Ptr &oldChild, const Ptr &newChild);
    bool hasChildWithLabel(const QString &label) const;
    bool isFTPMapped() const;
    quint64 noOfChildren() const { return childList.size(); }
    Ptr childAtIndex(quint64 index) const;
    quint64 indexOfChild(const Ptr &child) const;

    // The sidebar filter: children whose label contains the text, or that
    // keep a descendant which does. Results are cached per node and filter
    // text until the workspace next changes.
    const List &filteredChildren(const QString &filter) const;
    quint64 noOfChildrenFiltered(const QString &filter) const;
    Ptr childAtIndex(quint64 index, const QString &filter) const;

    // Depth-first search of this node and its descendants.
    Ptr childWithFullPath(const QString &fullPath);
    Ptr childWithLabel(const QString &label);

    // True when this node and everything below it are saved.
    bool unsavedChanges() const;

    // A new node sharing this one's fields and child objects; the language specification is
    // the default for new documents and the dimmed icon is not taken over.
    Ptr copy() const;

    QString description() const;

    // Appending many children at once without marking the workspace changed
    // for each (used while a subtree is being built and not yet shown).
    void adoptLoadedChildren(List children);

private:
    struct Bare {};

public:
    // Use the factories; the tag keeps construction to them.
    explicit LWDocument(Bare);

private:
    static Ptr makeFile(const QString &label, const std::optional<QString> &text);
    static Ptr makeInFolder(const Ptr &parent, const QString &label, quint64 kind);
    bool finishSave();
    void askToOpenLargeFile(qint64 size);
    void tellPreviewIsPartial(qint64 size);
    // Nothing when the file now holds the content, else why it does not.
    std::optional<QString> writeContent();
    void reportSaveFailure(const QString &reason) const;
    void applySpecToWindow();
    QString stateJson(bool forSwitch);
    const QString &contentTag();

    QString labelValue;
    List childList;
    quint64 kind = Unset;
    std::shared_ptr<const LWIconPair> iconPair;
    QString pathValue;
    QString fullPathValue;
    QString specNameValue;
    std::optional<QString> contentValue;
    LWStoredText storedForm;
    LWDiskStamp diskStampValue;
    // Names contentValue towards the editor page; empty until the text is
    // first sent or read back, and cleared whenever the content changes here.
    QString contentTagValue;
    bool isSaved = true;
    bool isReadOnly = false;
    // The user agreed to read this file although it is large.
    bool largeFileAccepted = false;
    const quint64 serial;
    std::weak_ptr<LWDocument> parentNode;
    mutable std::unique_ptr<LWDocumentFilterCache> filterCache;
};
