#include "editor/LWBackend.h"

#include "editor/PageCall.h"

#include "app/LWPaths.h"
#include "app/roles/ShellOutline.h"
#include "app/roles/ShellRoles.h"
#include "documents/FileManager.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWSafeSave.h"
#include "editor/EditorCommand.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

namespace {

LWDocument::Ptr currentDocument()
{
    LWDocumentManager *manager = LWDocumentManager::shared();
    return manager ? manager->currentDocument() : nullptr;
}

QString readText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

}

QString LWBackend::getTempFile_withExtension_(const QString &text, const QString &extension)
{
    const PageCall call;
    if (extension.contains(QLatin1Char('/'))) {
        qWarning("getTempFile: the extension %s names a folder; no file written", qPrintable(extension.left(80)));
        return QString();
    }
    const QString folder = LWPaths::dataPath(QStringLiteral("Data/Temp"));
    QDir().mkpath(folder);
    const int number = static_cast<int>(QRandomGenerator::global()->bounded(10000));
    const QString path = folder + QStringLiteral("/%1.%2").arg(number).arg(extension);
    return LWSafeSave::write(path, text.toUtf8()) ? path : QString();
}

QString LWBackend::getFullPath()
{
    const PageCall call;
    const LWDocument::Ptr document = currentDocument();
    return document ? document->fullPath() : QString();
}

QString LWBackend::getLabel()
{
    const PageCall call;
    const LWDocument::Ptr document = currentDocument();
    return document ? document->label() : QString();
}

void LWBackend::showInFinder_(const QString &path)
{
    const PageCall call;
    FileManager::showInFinder(path);
}

void LWBackend::showInBrowser_(const QString &pathOrURL)
{
    const PageCall call;
    FileManager::showInBrowser(pathOrURL);
}

void LWBackend::document_write_(const QString &path, const QString &text)
{
    const PageCall call;
    LWDocumentManager *manager = LWDocumentManager::shared();
    const LWDocument::Ptr open = manager ? manager->documentTree().documentWithFullPath(path) : nullptr;
    if (open) {
        // A saved node's icon changes; a failed save has told the user and
        // left the node unsaved, showing as it did.
        open->setContent(text);
        if (open->saveWithoutState())
            reloadOutlineLater();
        return;
    }
    if (!LWSafeSave::write(path, text.toUtf8()))
        return;
    const LWDocument::Ptr current = currentDocument();
    const LWDocument::Ptr parent = current ? current->parent() : nullptr;
    if (!parent)
        return;
    parent->addChildDocument(LWDocument::fileFromPath(path));
    reloadOutlineLater();
}

void LWBackend::reloadOutlineLater()
{
    QMetaObject::invokeMethod(this, [] {
        if (ShellOutline *outline = ShellRoles::outline())
            outline->reloadOutline();
    }, Qt::QueuedConnection);
}

void LWBackend::importjs_(const QString &path)
{
    const PageCall call;
    if (!QFileInfo(path).isFile())
        return;
    const QString source = readText(path);
    if (QFileInfo(path).suffix() == QLatin1String("coffee")) {
        const QString sources = QString::fromUtf8(QJsonDocument(QJsonArray{source}).toJson(QJsonDocument::Compact));
        EditorCommand::send(QStringLiteral("$Core.coffee(%1,true,true);").arg(sources));
        return;
    }
    EditorCommand::send(QStringLiteral("try { %1 } catch (err) { $Terminal.echo(inspectObject(err)) }").arg(source));
}

QString LWBackend::file_(const QString &path)
{
    const PageCall call;
    return readText(path);
}

QString LWBackend::getBinariesIndex()
{
    const PageCall call;
    const QString base = LWPaths::dataRoot() + QLatin1Char('/');
    const QJsonObject index{
        {QStringLiteral("node"), base + QStringLiteral("Data/Bin/node/bin/node")},
        {QStringLiteral("clojure"), base + QStringLiteral("Data/Bin/clojure/clojure.jar")},
        {QStringLiteral("lua"), base + QStringLiteral("Data/Bin/lua/lua")},
        {QStringLiteral("typescript"), base + QStringLiteral("Data/Bin/node/lib/node_modules/typescript/bin/tsc.js")},
    };
    return QString::fromUtf8(QJsonDocument(index).toJson(QJsonDocument::Compact));
}
