#pragma once

#include <QObject>
#include <QSet>

class LWDefaults;
class LWViewMenuController;

// While the preferences window is open: watches the settings that must reach
// the window and the editor at once (ViewSettings::liveKeys) and applies each
// change through the View menu, after the current event, with that key
// unwatched meanwhile so its own writes do not come back. A change made by the
// View menu itself comes back once and is applied again with the same value.
class LWPreferenceObserver : public QObject
{
    Q_OBJECT

public:
    LWPreferenceObserver(LWDefaults &defaults, LWViewMenuController &view, QObject *parent = nullptr);

private:
    void keyChanged(const QString &key);
    void applyUnwatched(const QString &key);

    LWViewMenuController &view;
    QSet<QString> unwatched;
};
