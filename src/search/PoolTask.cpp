#include "search/PoolTask.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace PoolTask {

void deliver(const QPointer<QObject> &receiver, std::function<void()> step)
{
    QMetaObject::invokeMethod(QCoreApplication::instance(), [receiver, step = std::move(step)] {
        if (receiver)
            step();
    }, Qt::QueuedConnection);
}

void start(std::function<void()> work)
{
    QThreadPool::globalInstance()->start(std::move(work));
}

}
