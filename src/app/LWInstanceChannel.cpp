#include "app/LWInstanceChannel.h"

#include <QDir>

#include <unistd.h>

namespace LWInstanceChannel {

QString socketName()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString folder = !runtime.isEmpty() && QDir(runtime).exists() ? runtime : QDir::tempPath();
    return QDir(folder).filePath(QStringLiteral("larkwood-%1").arg(getuid()));
}

}
