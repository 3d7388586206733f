#include "documents/LWImportTask.h"

#include "documents/LWDocumentTree.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>

namespace LWImportTask {

namespace {

void onMainThread(const QPointer<QObject> &receiver, std::function<void()> work)
{
    QMetaObject::invokeMethod(QCoreApplication::instance(), [receiver, work] {
        if (receiver)
            work();
    }, Qt::QueuedConnection);
}

}

void start(const QStringList &paths, QObject *receiver, const Started &started, const Built &built)
{
    const LWImportSettings settings = LWImportSettings::fromDefaults();
    const QPointer<QObject> guard(receiver);
    QThreadPool::globalInstance()->start([paths, settings, guard, started, built] {
        for (qsizetype index = 0; index < paths.size() && guard; ++index) {
            if (started)
                onMainThread(guard, [started, index] { started(index); });
            const QString path = paths.at(index);
            const LWDocument::Ptr node = LWDocumentTree::nodeFromPath(path, settings);
            onMainThread(guard, [built, index, path, node] { built(index, path, node); });
        }
    });
}

}
