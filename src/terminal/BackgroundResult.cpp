#include "terminal/BackgroundResult.h"

#include <QPromise>
#include <QThreadPool>

#include <memory>

namespace BackgroundResult {

QFuture<QString> run(std::function<QString()> work)
{
    auto promise = std::make_shared<QPromise<QString>>();
    QFuture<QString> future = promise->future();
    promise->start();
    QThreadPool::globalInstance()->start([promise, work = std::move(work)] {
        promise->addResult(work());
        promise->finish();
    });
    return future;
}

QFuture<QString> ready(const QString &text)
{
    QPromise<QString> promise;
    QFuture<QString> future = promise.future();
    promise.start();
    promise.addResult(text);
    promise.finish();
    return future;
}

}
