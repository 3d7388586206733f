#include "documents/LWPathText.h"

namespace LWPathText {

namespace {

QString withoutTrailingSlashes(const QString &path)
{
    qsizetype end = path.size();
    while (end > 1 && path.at(end - 1) == QLatin1Char('/'))
        --end;
    return path.left(end);
}

}

QString lastComponent(const QString &path)
{
    const QString trimmed = withoutTrailingSlashes(path);
    if (trimmed == QLatin1String("/"))
        return trimmed;
    return trimmed.mid(trimmed.lastIndexOf(QLatin1Char('/')) + 1);
}

QString deletingLastComponent(const QString &path)
{
    const QString trimmed = withoutTrailingSlashes(path);
    const qsizetype slash = trimmed.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return QLatin1String("");
    if (slash == 0)
        return QStringLiteral("/");
    return trimmed.left(slash);
}

QString appendingComponent(const QString &base, const QString &component)
{
    if (base.isEmpty())
        return component;
    if (base.endsWith(QLatin1Char('/')))
        return base + component;
    return base + QLatin1Char('/') + component;
}

QString extension(const QString &path)
{
    const QString name = lastComponent(path);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString(QLatin1String("")) : name.mid(dot + 1);
}

QString relativeDirectory(const QString &fullPath, const QString &root)
{
    QString relative = fullPath;
    relative.remove(root + QLatin1Char('/'));
    return deletingLastComponent(relative);
}

}
