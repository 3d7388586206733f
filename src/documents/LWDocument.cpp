#include "documents/LWDocument.h"

#include "app/LWDefaults.h"
#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellRoles.h"
#include "app/roles/ShellTabBar.h"
#include "documents/FileManager.h"
#include "documents/LWDocumentFilterCache.h"
#include "documents/LWDocumentIcons.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentState.h"
#include "documents/LWFolderLoader.h"
#include "documents/LWFileReading.h"
#include "documents/LWHexRendering.h"
#include "documents/LWPathText.h"
#include "documents/LWSafeSave.h"
#include "documents/LWSpecChooser.h"
#include "documents/LWTextEncoding.h"
#include "editor/EditorTextTransfer.h"
#include "extensions/LWSpec.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtDebug>

#include <algorithm>
#include <atomic>

namespace {

const QString UntitledLabel = QStringLiteral("Untitled");
const QString UntitledFormat = QStringLiteral("Untitled - %d");
const QString RemoteSettingsName = QStringLiteral(".ftp-settings.json");

QString defaultSpecForNew()
{
    return LWDefaults::shared()->stringForKey(QStringLiteral("LW_DefaultSpecForNew"));
}

void sendToEditor(const QString &script)
{
    if (ShellPages *pages = ShellRoles::pages())
        pages->sendToEditor(script);
}

}

namespace {
std::atomic<quint64> nodesMade{0};
}

LWDocument::LWDocument(Bare) : serial(++nodesMade)
{
}

LWDocument::~LWDocument() = default;

LWDocument::Ptr LWDocument::createBare()
{
    return std::make_shared<LWDocument>(Bare{});
}

LWDocument::Ptr LWDocument::create()
{
    Ptr node = createBare();
    node->specNameValue = defaultSpecForNew();
    return node;
}

// MARK: factories

LWDocument::Ptr LWDocument::makeFile(const QString &label, const std::optional<QString> &text)
{
    Ptr node = create();
    node->labelValue = label;
    node->kind = File;
    node->contentValue = text;
    node->updateIcon(LWDocumentIcons::regularFile());
    return node;
}

LWDocument::Ptr LWDocument::emptyFile()
{
    return makeFile(UntitledLabel, std::nullopt);
}

LWDocument::Ptr LWDocument::emptyFileWithLabel(const QString &label)
{
    return makeFile(label, std::nullopt);
}

LWDocument::Ptr LWDocument::fileWithContent(const QString &text)
{
    return makeFile(UntitledLabel, text);
}

LWDocument::Ptr LWDocument::fileWithLabel(const QString &label, const QString &text)
{
    return makeFile(label, text);
}

LWDocument::Ptr LWDocument::fileFromTemplate(const QString &name, const QString &text, const QString &)
{
    Ptr node = makeFile(name, text);
    node->updateSpecFromPath(name);
    return node;
}

LWDocument::Ptr LWDocument::makeInFolder(const Ptr &parent, const QString &label, quint64 kind)
{
    Ptr node = create();
    node->labelValue = label;
    node->kind = kind;
    node->pathValue = LWPathText::appendingComponent(parent->pathValue, parent->labelValue);
    node->fullPathValue = LWPathText::appendingComponent(parent->fullPathValue, label);
    node->updateIcon(node->iconOfKind());
    return node;
}

// Folders and top-level folder groups show the folder icon, files the file icon.
QImage LWDocument::iconOfKind() const
{
    return isFile() ? LWDocumentIcons::regularFile() : LWDocumentIcons::folder();
}

LWDocument::Ptr LWDocument::emptyFileInExistingDocument(const Ptr &parent)
{
    const QString unique = FileManager::uniqueFileWithFormat(parent->fullPathValue, UntitledFormat);
    Ptr node = makeInFolder(parent, LWPathText::lastComponent(unique), File);
    node->isSaved = false;
    return node;
}

LWDocument::Ptr LWDocument::fileInExistingDocument(const Ptr &parent, const QString &label, const QString &text)
{
    Ptr node = makeInFolder(parent, label, File);
    node->contentValue = text;
    return node;
}

LWDocument::Ptr LWDocument::emptyFolderInExistingDocument(const Ptr &parent)
{
    const QString unique = FileManager::uniqueFileWithFormat(parent->fullPathValue, UntitledFormat);
    return makeInFolder(parent, LWPathText::lastComponent(unique), Folder);
}

LWDocument::Ptr LWDocument::fileFromPath(const QString &path, const QString &root)
{
    return LWFolderLoader(root).fileNode(path);
}

LWDocument::Ptr LWDocument::folderFromPath(const QString &path, const QString &root)
{
    return LWFolderLoader(root).folderNode(path);
}

LWDocument::Ptr LWDocument::groupFromPath(const QString &path)
{
    return LWFolderLoader(path).groupNode(path);
}

LWDocument::Ptr LWDocument::filesGroup()
{
    Ptr node = create();
    node->labelValue = QStringLiteral("FILES");
    node->kind = Group;
    return node;
}

// MARK: fields

void LWDocument::setLabel(const QString &label)
{
    labelValue = label;
    LWDocumentFilterCache::workspaceChanged();
}

void LWDocument::setChildren(const List &children)
{
    childList = children;
    LWDocumentFilterCache::workspaceChanged();
}

void LWDocument::setContent(const std::optional<QString> &content)
{
    contentValue = content;
    contentTagValue.clear();
}

QImage LWDocument::icon() const
{
    return iconPair ? iconPair->icon : QImage();
}

void LWDocument::setIcon(const QImage &icon)
{
    iconPair = icon.isNull() ? nullptr : std::make_shared<const LWIconPair>(LWIconPair{icon, QImage()});
}

QImage LWDocument::dimmedIcon() const
{
    return iconPair ? iconPair->dimmed : QImage();
}

QString LWDocument::identity() const
{
    return QString::asprintf("0x%llx", static_cast<unsigned long long>(serial));
}

// MARK: specification, location, icon

void LWDocument::updateSpecFromPath(const QString &path)
{
    if (auto name = LWSpecChooser().specNameForPath(path))
        specNameValue = *name;
}

void LWDocument::updatePath(const QString &fullPath)
{
    setLabel(LWPathText::lastComponent(fullPath));
    pathValue = QLatin1String("");
    fullPathValue = fullPath;
    updateSpecFromPath(fullPath);
}

void LWDocument::updateIcon(const QImage &image)
{
    iconPair = LWDocumentIcons::pairFor(image);
}

QImage LWDocument::getIcon() const
{
    return isSaved ? icon() : dimmedIcon();
}

// MARK: content

QString LWDocument::getContent()
{
    if (contentValue)
        return *contentValue;
    contentTagValue.clear();
    if (fullPathValue.isEmpty()) {
        contentValue = QLatin1String("");
        return *contentValue;
    }
    diskStampValue = LWDiskStamp::of(fullPathValue);
    if (!diskStampValue.exists) {
        // A path given for a file that does not exist yet: saving creates it.
        contentValue = QLatin1String("");
        updateSpecFromPath(fullPathValue);
        return *contentValue;
    }
    if (!QFileInfo(fullPathValue).isFile()) {
        // Pipes and devices would block the window or never end.
        qWarning().noquote() << QStringLiteral("%1 is not a regular file; not read").arg(fullPathValue);
        if (ShellDialogs *dialogs = ShellRoles::dialogs())
            dialogs->showAlert(QStringLiteral("“%1” cannot be opened").arg(labelValue),
                             QStringLiteral("It is not a regular file (a pipe, socket or device)."));
        contentValue = QLatin1String("");
        isReadOnly = true;
        return *contentValue;
    }
    const qint64 size = QFileInfo(fullPathValue).size();
    if (size > LWFileReading::LargeFileLimit && !largeFileAccepted) {
        askToOpenLargeFile(size);
        contentValue = QStringLiteral("“%1” is %2 and was not read.").arg(labelValue, LWFileReading::sizeText(size));
        isReadOnly = true;
        updateSpecFromPath(fullPathValue);
        return *contentValue;
    }
    const quint64 encoding = LWTextEncoding::defaultEncoding();
    const LWFileReading::Result read = LWFileReading::read(fullPathValue, encoding);
    contentValue = read.ok && !read.binary ? storedForm.read(read.bytes, encoding) : std::nullopt;
    if (!contentValue) {
        contentValue = LWHexRendering::render(read.bytes);
        isReadOnly = true;
    }
    if (read.truncated)
        tellPreviewIsPartial(size);
    updateSpecFromPath(fullPathValue);
    return *contentValue;
}

// The file is read only once the user agrees; then the node is shown again.
void LWDocument::askToOpenLargeFile(qint64 size)
{
    ShellDialogs *dialogs = ShellRoles::dialogs();
    qInfo("%s is %s; asking before reading it", qPrintable(fullPathValue), qPrintable(LWFileReading::sizeText(size)));
    if (!dialogs)
        return;
    const std::weak_ptr<LWDocument> weak = weak_from_this();
    dialogs->showChoice(QStringLiteral("“%1” is a large file").arg(labelValue),
                      QStringLiteral("It is %1. Reading it may take a while and much memory.")
                          .arg(LWFileReading::sizeText(size)),
                      QStringLiteral("Open Anyway"), QStringLiteral("Cancel"), [weak](int answer) {
                          const Ptr node = weak.lock();
                          if (!node || answer != 1)
                              return;
                          node->largeFileAccepted = true;
                          if (LWDocumentManager *manager = LWDocumentManager::shared())
                              manager->reloadFromDisk(node);
                      });
}

void LWDocument::tellPreviewIsPartial(qint64 size)
{
    const QString message = QStringLiteral("“%1” holds binary content; its first %2 of %3 are shown.")
                                .arg(labelValue, LWFileReading::sizeText(LWFileReading::BinaryPreviewLimit),
                                     LWFileReading::sizeText(size));
    qInfo().noquote() << message;
    if (ShellDialogs *dialogs = ShellRoles::dialogs())
        dialogs->showAlert(QStringLiteral("Only part of “%1” is shown").arg(labelValue), message);
}

void LWDocument::reloadFromDisk()
{
    setContent(std::nullopt);
    isReadOnly = false;
    getContent();
    isSaved = true;
}

bool LWDocument::save()
{
    if (ShellPages *pages = ShellRoles::pages())
        updateFromJson(pages->evaluateInEditor(editorStateQuery()));
    return finishSave();
}

bool LWDocument::saveWithoutState()
{
    return finishSave();
}

bool LWDocument::finishSave()
{
    if (const std::optional<QString> failure = writeContent()) {
        reportSaveFailure(*failure);
        return false;
    }
    diskStampValue = LWDiskStamp::of(fullPathValue);
    updateIcon(LWDocumentIcons::regularFile());
    sendToEditor(QStringLiteral("$Events.exec('documentSaved');"));
    isSaved = true;
    return true;
}

// Writing the hexadecimal view back would destroy the file it shows, and the
// view cannot be edited, so the file already holds what it shows.
std::optional<QString> LWDocument::writeContent()
{
    if (isReadOnly) {
        qInfo().noquote() << QStringLiteral("Not saving read-only document %1").arg(fullPathValue);
        return std::nullopt;
    }
    if (fullPathValue.isEmpty())
        return QStringLiteral("The document has no file yet.");
    if (!contentValue)
        return QStringLiteral("The editor did not give the text, and there is no earlier text to write.");
    const auto bytes = storedForm.bytesFor(*contentValue, LWTextEncoding::defaultEncoding());
    if (!bytes)
        return QStringLiteral("The text has characters that the chosen encoding cannot hold.");
    QString reason;
    if (!LWSafeSave::write(fullPathValue, *bytes, &reason))
        return QStringLiteral("The file %1 could not be written: %2.").arg(fullPathValue, reason);
    return std::nullopt;
}

void LWDocument::reportSaveFailure(const QString &reason) const
{
    qWarning().noquote() << QStringLiteral("Could not save %1: %2").arg(labelValue, reason);
    if (ShellDialogs *dialogs = ShellRoles::dialogs())
        dialogs->showAlert(QStringLiteral("Could not save \u201c%1\u201d").arg(labelValue),
                         reason + QStringLiteral(" The document keeps its unsaved changes."));
}

// MARK: renaming

void LWDocument::renameWithLabel(const QString &label)
{
    setLabel(label);
    LWDocumentManager *manager = LWDocumentManager::shared();
    ShellTabBar *tabBar = ShellRoles::tabBar();
    if (manager && tabBar && manager->currentDocument().get() == this)
        tabBar->setSelectedTabTitle(label);
    if (fullPathValue.isEmpty()) {
        updateSpecFromPath(label);
    } else {
        const QString oldFullPath = fullPathValue;
        const QString keptPath = pathValue;
        const QString newFullPath = LWPathText::appendingComponent(
            LWPathText::deletingLastComponent(oldFullPath), label);
        updatePath(newFullPath);
        FileManager::renameAs(oldFullPath, newFullPath);
        updateIcon(iconOfKind());
        pathValue = keptPath;
    }
    if (isFile())
        applySpecToWindow();
}

void LWDocument::applySpecToWindow()
{
    if (LWDocumentManager *manager = LWDocumentManager::shared())
        manager->switchToDoc(shared_from_this());
}

// MARK: JSON

QString LWDocument::toJson()
{
    return stateJson(false);
}

QString LWDocument::toEditorJson()
{
    return stateJson(true);
}

QString LWDocument::stateJson(bool forSwitch)
{
    QJsonObject object;
    try {
        const LWSpec *spec = LWSpecChooser::specNamed(specNameValue);
        if (!spec)
            qWarning().noquote() << QStringLiteral("No installed specification \"%1\" for %2; showing it as text")
                                        .arg(specNameValue, labelValue);
        const bool sentBefore = !contentTagValue.isEmpty();
        const QString text = getContent();
        object = QJsonObject{{QStringLiteral("content"),
                              forSwitch ? EditorTextTransfer::content(text, sentBefore) : QJsonValue(text)},
                             {QStringLiteral("mode"), spec ? LWSpecChooser::modeOf(spec) : QStringLiteral("text")},
                             {QStringLiteral("readOnly"), isReadOnly}};
        if (forSwitch)
            object.insert(QStringLiteral("tag"), contentTag());
    } catch (const std::exception &error) {
        qWarning().noquote() << QStringLiteral("!! Got an exception : %1").arg(QString::fromUtf8(error.what()));
        object = QJsonObject{{QStringLiteral("content"), QLatin1String("")},
                             {QStringLiteral("mode"), QStringLiteral("text")}};
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

const QString &LWDocument::contentTag()
{
    if (contentTagValue.isEmpty())
        contentTagValue = EditorTextTransfer::newTag();
    return contentTagValue;
}

QString LWDocument::editorStateQuery() const
{
    return EditorTextTransfer::stateQuery(contentTagValue);
}

// An answer with content replaces the node's content. One that names the
// node's tag but leaves the content out means the page still holds the node's
// text. Anything else (no answer, not JSON, another tag) means the page could
// not report its text, and the node keeps what it has rather than lose it.
bool LWDocument::isUnchangedIn(const QString &editorState) const
{
    LWDocumentState state;
    state.updateFromJson(editorState);
    return !contentTagValue.isEmpty() && state.tag == contentTagValue;
}

void LWDocument::updateFromJson(const QString &json)
{
    LWDocumentState state;
    state.updateFromJson(json);
    if (state.content) {
        contentValue = state.content;
        contentTagValue = state.tag ? *state.tag : QString();
        return;
    }
    if (state.tag && *state.tag == contentTagValue)
        return;
    qWarning().noquote() << QStringLiteral("The editor did not report the text of %1 (%2); keeping the text last known")
                                .arg(labelValue, json.isEmpty() ? QStringLiteral("no answer")
                                                                : QStringLiteral("%1 characters").arg(json.size()));
}

// MARK: children

void LWDocument::addChildDocument(const Ptr &child)
{
    child->parentNode = weak_from_this();
    childList.push_back(child);
    LWDocumentFilterCache::workspaceChanged();
}

void LWDocument::addChildDocument(const Ptr &child, quint64 index)
{
    if (index > childList.size()) {
        qWarning().noquote() << QStringLiteral("Child index %1 is past the end of %2; appending")
                                    .arg(index).arg(labelValue);
        index = childList.size();
    }
    child->parentNode = weak_from_this();
    childList.insert(childList.begin() + static_cast<qptrdiff>(index), child);
    LWDocumentFilterCache::workspaceChanged();
}

void LWDocument::adoptLoadedChildren(List children)
{
    for (const Ptr &child : children)
        child->parentNode = weak_from_this();
    if (childList.empty())
        childList = std::move(children);
    else
        childList.insert(childList.end(), children.begin(), children.end());
    LWDocumentFilterCache::workspaceChanged();
}

void LWDocument::removeChildDocument(const Ptr &child)
{
    const quint64 index = indexOfChild(child);
    if (index == NotFound)
        return;
    childList.erase(childList.begin() + static_cast<qptrdiff>(index));
    LWDocumentFilterCache::workspaceChanged();
}

void LWDocument::moveChildDocument(const Ptr &child, quint64 targetIndex)
{
    const quint64 oldIndex = indexOfChild(child);
    removeChildDocument(child);
    addChildDocument(child, oldIndex < targetIndex ? targetIndex - 1 : targetIndex);
}

void LWDocument::moveToParent(const Ptr &newParent, quint64 index)
{
    for (Ptr ancestor = newParent; ancestor; ancestor = ancestor->parent()) {
        if (ancestor.get() == this) {
            qWarning().noquote() << QStringLiteral("Cannot move %1 into itself").arg(fullPathValue);
            return;
        }
    }
    Ptr self = shared_from_this();
    if (Ptr oldParent = parent())
        oldParent->removeChildDocument(self);
    const QString oldFullPath = fullPathValue;
    pathValue = LWPathText::appendingComponent(newParent->pathValue, newParent->labelValue);
    fullPathValue = LWPathText::appendingComponent(newParent->fullPathValue, labelValue);
    if (index == NotFound)
        newParent->addChildDocument(self);
    else
        newParent->addChildDocument(self, index);
    FileManager::moveTo(oldFullPath, fullPathValue);
}

// The path below deliberately leaves out this node's own label, and the disk
// copy goes from the adopted node's new location to this folder's path.
void LWDocument::copyFilesToSelf(const List &documents, quint64 index)
{
    quint64 position = 0;
    for (const Ptr &document : documents) {
        document->pathValue = LWPathText::appendingComponent(pathValue, document->labelValue);
        document->fullPathValue = LWPathText::appendingComponent(fullPathValue, document->labelValue);
        if (index == NotFound)
            addChildDocument(document);
        else
            addChildDocument(document, index + position);
        FileManager::copyTo(document->fullPathValue, fullPathValue);
        ++position;
    }
}

void LWDocument::replaceChild(const Ptr &oldChild, const Ptr &newChild)
{
    const quint64 index = indexOfChild(oldChild);
    if (index == NotFound) {
        qWarning().noquote() << QStringLiteral("%1 is not a child of %2").arg(oldChild->labelValue, labelValue);
        return;
    }
    childList[index] = newChild;
    LWDocumentFilterCache::workspaceChanged();
}

bool LWDocument::hasChildWithLabel(const QString &label) const
{
    return std::any_of(childList.cbegin(), childList.cend(),
                       [&](const Ptr &child) { return child->labelValue == label; });
}

bool LWDocument::isFTPMapped() const
{
    return isExpandable() && hasChildWithLabel(RemoteSettingsName);
}

LWDocument::Ptr LWDocument::childAtIndex(quint64 index) const
{
    return index < childList.size() ? childList[index] : nullptr;
}

quint64 LWDocument::indexOfChild(const Ptr &child) const
{
    const auto found = std::find(childList.cbegin(), childList.cend(), child);
    return found == childList.cend() ? NotFound : static_cast<quint64>(found - childList.cbegin());
}

// MARK: filter

const LWDocument::List &LWDocument::filteredChildren(const QString &filter) const
{
    static const List none;
    if (childList.empty())
        return none;
    if (!filterCache)
        filterCache = std::make_unique<LWDocumentFilterCache>();
    if (const List *cached = filterCache->lookup(filter))
        return *cached;
    List kept;
    for (const Ptr &child : childList) {
        if (child->labelValue.contains(filter) || !child->filteredChildren(filter).empty())
            kept.push_back(child);
    }
    return filterCache->store(filter, std::move(kept));
}

quint64 LWDocument::noOfChildrenFiltered(const QString &filter) const
{
    return filteredChildren(filter).size();
}

LWDocument::Ptr LWDocument::childAtIndex(quint64 index, const QString &filter) const
{
    const List &filtered = filteredChildren(filter);
    return index < filtered.size() ? filtered[index] : nullptr;
}

// MARK: search and state

LWDocument::Ptr LWDocument::childWithFullPath(const QString &fullPath)
{
    if (fullPathValue == fullPath)
        return shared_from_this();
    for (const Ptr &child : childList) {
        if (Ptr found = child->childWithFullPath(fullPath))
            return found;
    }
    return nullptr;
}

LWDocument::Ptr LWDocument::childWithLabel(const QString &label)
{
    if (labelValue == label)
        return shared_from_this();
    for (const Ptr &child : childList) {
        if (Ptr found = child->childWithLabel(label))
            return found;
    }
    return nullptr;
}

bool LWDocument::unsavedChanges() const
{
    if (!isSaved)
        return false;
    return std::all_of(childList.cbegin(), childList.cend(),
                       [](const Ptr &child) { return child->unsavedChanges(); });
}

LWDocument::Ptr LWDocument::copy() const
{
    Ptr node = create();
    node->labelValue = labelValue;
    node->childList = childList;
    node->kind = kind;
    node->setIcon(icon());
    node->pathValue = pathValue;
    node->fullPathValue = fullPathValue;
    node->contentValue = contentValue;
    node->isSaved = isSaved;
    node->isReadOnly = isReadOnly;
    node->parentNode = parentNode;
    return node;
}

QString LWDocument::description() const
{
    return QStringLiteral("\n    LWDocument: \n        \tLabel: %1\n        \tChildren: %2\n        \tPath: %3"
                          "\n        \tFullPath: %4\n        \tType: %5\n        \tSaved: %6\n    ")
        .arg(labelValue)
        .arg(childList.size())
        .arg(pathValue, fullPathValue)
        .arg(kind)
        .arg(isSaved ? 1 : 0);
}
