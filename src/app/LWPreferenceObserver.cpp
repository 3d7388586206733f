#include "app/LWPreferenceObserver.h"

#include "app/LWDefaults.h"
#include "editor/ViewSettings.h"

#include <QTimer>

LWPreferenceObserver::LWPreferenceObserver(LWDefaults &defaults, LWViewMenuController &view, QObject *parent)
    : QObject(parent), view(view)
{
    connect(&defaults, &LWDefaults::valueChanged, this, &LWPreferenceObserver::keyChanged);
}

void LWPreferenceObserver::keyChanged(const QString &key)
{
    if (key.isEmpty() || unwatched.contains(key) || !ViewSettings::liveKeys().contains(key))
        return;
    qInfo("%s changed", qUtf8Printable(key));
    QTimer::singleShot(0, this, [this, key] { applyUnwatched(key); });
}

void LWPreferenceObserver::applyUnwatched(const QString &key)
{
    unwatched.insert(key);
    ViewSettings::apply(view, key);
    unwatched.remove(key);
}
