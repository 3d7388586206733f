#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

// Work on the global thread pool whose outcome comes back to the window's
// thread, and only while the object waiting for it still exists.
namespace PoolTask {

// Runs step on the main thread later, unless receiver has gone by then.
void deliver(const QPointer<QObject> &receiver, std::function<void()> step);

// Runs work on a pool thread, then done with its result on the main thread.
template <typename Result>
void run(QObject *receiver, std::function<Result()> work, std::function<void(Result)> done)
{
    start([guard = QPointer<QObject>(receiver), work = std::move(work), done = std::move(done)] {
        auto result = std::make_shared<Result>(work());
        deliver(guard, [done, result] { done(std::move(*result)); });
    });
}

void start(std::function<void()> work);

}
