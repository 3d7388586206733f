#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

#include <functional>

// Collects the paths a file-system watcher reports and hands them over
// together once none has changed for a moment, so that a burst of writes by
// another program is dealt with once.
class SettlingChanges : public QObject
{
public:
    using Handler = std::function<void(const QSet<QString> &paths)>;

    SettlingChanges(int milliseconds, Handler settled);

    void note(const QString &path);
    void forget(const QString &path);
    void clear();

private:
    QTimer settle;
    QSet<QString> paths;
    Handler settled;
};
