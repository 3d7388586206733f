#pragma once

#include <QIcon>
#include <QString>

// The pictures of the preferences tabs, drawn from small vector images:
// "General" (switches), "Files" (stacked documents), "Editor" (a pen over a
// page), "Pro" (a wrench), "Updates" (a circling arrow). Unknown names give
// an empty icon.
namespace PreferencesImages {

QIcon image(const QString &identifier);

}
