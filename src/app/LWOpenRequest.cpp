#include "app/LWOpenRequest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

QByteArray LWOpenRequest::toJsonLine() const
{
    const QJsonObject message{{QStringLiteral("paths"), QJsonArray::fromStringList(paths)},
                              {QStringLiteral("line"), line},
                              {QStringLiteral("wait"), wait}};
    return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<LWOpenRequest> LWOpenRequest::fromJsonLine(const QByteArray &line)
{
    const QJsonDocument document = QJsonDocument::fromJson(line.trimmed());
    const QJsonValue paths = document.object().value(QStringLiteral("paths"));
    if (!document.isObject() || !paths.isArray())
        return std::nullopt;
    LWOpenRequest request;
    for (const QJsonValue &path : paths.toArray()) {
        if (!path.isString() || path.toString().isEmpty())
            return std::nullopt;
        request.paths << path.toString();
    }
    request.line = std::max(0, document.object().value(QStringLiteral("line")).toInt());
    request.wait = document.object().value(QStringLiteral("wait")).toBool();
    return request;
}
