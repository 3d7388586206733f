#include "documents/SettlingChanges.h"

#include <utility>

SettlingChanges::SettlingChanges(int milliseconds, Handler settled) : settled(std::move(settled))
{
    settle.setSingleShot(true);
    settle.setInterval(milliseconds);
    connect(&settle, &QTimer::timeout, this, [this] { this->settled(std::exchange(paths, {})); });
}

void SettlingChanges::note(const QString &path)
{
    paths.insert(path);
    settle.start();
}

void SettlingChanges::forget(const QString &path)
{
    paths.remove(path);
}

void SettlingChanges::clear()
{
    paths.clear();
}
