// What the page's plugin runtime needs of the shell beyond the general
// operations: a plugin's manifest, and saving the current document.
#include "editor/LWBackend.h"

#include "editor/PageCall.h"

#include "documents/LWDocumentManager.h"
#include "documents/LWFileMenuController.h"
#include "extensions/JSONComments.h"

#include <QJsonDocument>
#include <QPromise>
#include <QtDebug>

#include <memory>

namespace {

// The File menu's Save on the current document. Answers the saved file's
// path; "" when there is no document, when it has no file yet (Save offers
// the save dialog then, and the plugin is not kept waiting for it) or when
// the save failed (the user has been told).
QString saveCurrentDocument()
{
    LWDocumentManager *manager = LWDocumentManager::shared();
    if (!manager || !manager->currentDocument()) {
        qWarning("saveDocument: no document is open");
        return QString();
    }
    try {
        LWFileMenuController(*manager).saveAction();
    } catch (const std::exception &error) {
        qWarning("saveDocument: the document could not be saved: %s", error.what());
        return QString();
    }
    const LWDocument::Ptr document = manager->currentDocument();
    return document->isUntitled() || !document->saved() ? QString() : document->fullPath();
}

}

QString LWBackend::pluginInfo_(const QString &bundlePath)
{
    const PageCall call;
    const QVariant info = JSONComments::JSONObjectWithCommentedContentsOfFile(bundlePath + QStringLiteral("/info.json"));
    if (info.typeId() != QMetaType::QVariantMap) {
        qWarning("pluginInfo: %s has no readable info.json; the plugin gets an empty manifest", qPrintable(bundlePath));
        return QStringLiteral("{}");
    }
    return QString::fromUtf8(QJsonDocument::fromVariant(info).toJson(QJsonDocument::Compact));
}

// Saving asks the page for the editor's text, which it cannot answer during
// its own call: the save runs from the event loop once the call has returned.
QFuture<QString> LWBackend::saveDocument()
{
    const PageCall call;
    auto promise = std::make_shared<QPromise<QString>>();
    promise->start();
    QMetaObject::invokeMethod(this, [promise] {
        promise->addResult(saveCurrentDocument());
        promise->finish();
    }, Qt::QueuedConnection);
    return promise->future();
}
