#include "app/LWPreferencesController.h"

#include "app/LWDefaults.h"
#include "editor/ViewSettings.h"

namespace {

const QStringList numbers{QStringLiteral("LW_TabSize"), QStringLiteral("LW_WrapLimit")};

}

LWPreferencesController::LWPreferencesController(LWViewMenuController &view)
    : view(view)
{
    const LWDefaults &defaults = *LWDefaults::shared();
    for (const QString &key : ViewSettings::switches())
        snapshot.insert(key, defaults.boolForKey(key));
    for (const QString &key : numbers)
        snapshot.insert(key, defaults.integerForKey(key));
}

void LWPreferencesController::close()
{
    const LWDefaults &defaults = *LWDefaults::shared();
    for (const QString &key : ViewSettings::switches())
        if (snapshot.value(key).toBool() != defaults.boolForKey(key))
            ViewSettings::apply(view, key);
    for (const QString &key : numbers)
        if (snapshot.value(key).toLongLong() != defaults.integerForKey(key))
            ViewSettings::apply(view, key);
}
