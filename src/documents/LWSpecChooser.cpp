#include "documents/LWSpecChooser.h"

#include "app/LWDefaults.h"
#include "documents/LWPathText.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWSpec.h"

LWSpecChooser::LWSpecChooser()
    : LWSpecChooser(LWDefaults::shared()->dictionaryForKey(QStringLiteral("LW_User_Extensions")))
{
}

LWSpecChooser::LWSpecChooser(const QVariantMap &userExtensions)
    : userExtensions(userExtensions)
{
    if (const LWEnvironment *environment = LWEnvironment::shared()) {
        specsByName = environment->specNames();
        specsByExtension = environment->extensions();
    }
}

LWSpec *LWSpecChooser::specForPath(const QString &path, CoffeeMarkdown coffee) const
{
    const QString name = LWPathText::lastComponent(path);
    const QString key = coffee == CoffeeMarkdown::Recognised ? LWEnvironment::extensionKey(name)
                                                             : LWPathText::extension(name);
    const auto userChoice = userExtensions.constFind(key);
    if (userChoice != userExtensions.constEnd()) {
        if (LWSpec *installed = specsByName.value(userChoice->toString()))
            return installed;
    }
    if (LWSpec *byExtension = specsByExtension.value(key))
        return byExtension;
    return specsByExtension.value(name);
}

std::optional<QString> LWSpecChooser::specNameForPath(const QString &path) const
{
    if (const LWSpec *spec = specForPath(path))
        return spec->name();
    return std::nullopt;
}

LWSpec *LWSpecChooser::specNamed(const QString &specName)
{
    const LWEnvironment *environment = LWEnvironment::shared();
    return environment ? environment->specNames().value(specName) : nullptr;
}

QString LWSpecChooser::modeOf(const LWSpec *spec)
{
    return spec->infoText(QStringLiteral("name"));
}
