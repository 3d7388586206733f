#include "documents/LWDocumentState.h"

#include "documents/LWSpecChooser.h"
#include "documents/LWTextEncoding.h"
#include "extensions/JSONComments.h"
#include "extensions/LWSpec.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

std::optional<QString> stringMember(const QVariantMap &object, const QString &key)
{
    const QVariant value = object.value(key);
    return value.typeId() == QMetaType::QString ? std::optional<QString>(value.toString()) : std::nullopt;
}

std::optional<QString> readUtf8(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return LWTextEncoding::decode(bytes, LWTextEncoding::UTF8);
}

}

LWDocumentState LWDocumentState::stateWithContent(const QString &content)
{
    LWDocumentState state;
    state.content = content;
    return state;
}

LWDocumentState LWDocumentState::stateFromPath(const QString &path)
{
    LWDocumentState state;
    state.content = readUtf8(path);
    if (const LWSpec *spec = LWSpecChooser().specForPath(path, LWSpecChooser::CoffeeMarkdown::Ignored)) {
        state.specName = spec->name();
        state.mode = LWSpecChooser::modeOf(spec);
    }
    return state;
}

QString LWDocumentState::toJson() const
{
    QJsonObject object;
    if (content)
        object.insert(QStringLiteral("content"), *content);
    if (mode)
        object.insert(QStringLiteral("mode"), *mode);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void LWDocumentState::updateFromJson(const QString &json)
{
    const QVariantMap object = JSONComments::JSONObjectWithCommentedData(json.toUtf8()).toMap();
    content = stringMember(object, QStringLiteral("content"));
    mode = stringMember(object, QStringLiteral("mode"));
    tag = stringMember(object, QStringLiteral("tag"));
}
