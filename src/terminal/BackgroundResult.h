#pragma once

#include <QFuture>
#include <QString>

#include <functional>

namespace BackgroundResult {

// Runs work on a pool thread and answers a future of its text, so a caller
// on the window's thread (a page's call, whose promise settles with the
// future) never waits for a program.
QFuture<QString> run(std::function<QString()> work);

// A future that already holds text.
QFuture<QString> ready(const QString &text);

}
