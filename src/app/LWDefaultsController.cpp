#include "app/LWDefaultsController.h"

#include "app/LWDefaults.h"

namespace {

QVariantMap registeredValues()
{
    return {
        {QStringLiteral("LW_Sidebar"), true},
        {QStringLiteral("LW_TabBar"), true},
        {QStringLiteral("LW_StatusBar"), true},
        {QStringLiteral("LW_Panel"), true},
        {QStringLiteral("LW_Gutter"), true},
        {QStringLiteral("LW_PrintMargin"), false},
        {QStringLiteral("LW_IndentationGuides"), true},
        {QStringLiteral("LW_Invisibles"), false},
        {QStringLiteral("LW_SoftTabs"), false},
        {QStringLiteral("LW_TabSize"), 4},
        {QStringLiteral("LW_WordWrap"), true},
        {QStringLiteral("LW_Completion"), true},
        {QStringLiteral("LW_WrapLimit"), 0},
        {QStringLiteral("LW_FontName"), QStringLiteral("Menlo")},
        {QStringLiteral("LW_FontSize"), 14},
        {QStringLiteral("LW_Theme"), QStringLiteral("Classic (Larkwood)")},
        {QStringLiteral("LW_Search_Regex"), false},
        {QStringLiteral("LW_Search_Case"), false},
        {QStringLiteral("LW_Search_Whole_Word"), false},
        {QStringLiteral("LW_Search_Scope"), QStringLiteral("Document")},
        {QStringLiteral("LW_User_Extensions"), QVariantMap()},
        {QStringLiteral("LW_DoAtStartup"), 1},
        {QStringLiteral("LW_DoOnQuit"), 0},
        {QStringLiteral("LW_DefaultSpecForNew"), QStringLiteral("Plain Text")},
        {QStringLiteral("LW_DefaultEncoding"), 4},
        {QStringLiteral("LW_WSFoldersOnTop"), true},
        {QStringLiteral("LW_WSDoFilter"), true},
        {QStringLiteral("LW_WSDoFilterRegex"), QStringLiteral(".DS_Store|^\\.git$")},
        {QStringLiteral("LW_ShellInstalled"), false},
        {QStringLiteral("LW_PreviouslyOpened"), QStringList()},
        {QStringLiteral("WebKitDeveloperExtras"), true},
    };
}

}

LWDefaultsController::LWDefaultsController(LWDefaults &store)
    : defaults(store)
{
    defaults.registerDefaults(registeredValues());
}

LWDefaultsController::LWDefaultsController()
    : LWDefaultsController(*LWDefaults::shared())
{
}

void LWDefaultsController::resetDefaults()
{
    const QVariantMap stored = defaults.dictionaryRepresentation();
    for (auto entry = stored.cbegin(); entry != stored.cend(); ++entry)
        defaults.removeObjectForKey(entry.key());
    defaults.synchronize();
}
