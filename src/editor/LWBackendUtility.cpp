#include "editor/LWBackend.h"

#include "editor/PageCall.h"

#include "app/roles/ShellPages.h"
#include "app/roles/ShellRoles.h"
#include "editor/EditorCommand.h"
#include "editor/JavaScriptEscape.h"
#include "extensions/JSONComments.h"

#include <QFileInfo>

namespace {

// The JSON argument when it is an array, else none (logged).
QVariantList parsedArray(const QString &json, const char *operation)
{
    const QVariant parsed = JSONComments::JSONObjectWithCommentedString(json);
    if (parsed.typeId() != QMetaType::QVariantList) {
        if (!json.isEmpty())
            qWarning("%s: the argument is not a JSON array; using none", operation);
        return {};
    }
    return parsed.toList();
}

}

void LWBackend::openUtilityView()
{
    const PageCall call;
    if (ShellPages *shell = ShellRoles::pages())
        shell->openUtilityView();
}

void LWBackend::loadUtilityWithHtml_(const QString &html)
{
    const PageCall call;
    if (ShellPages *shell = ShellRoles::pages())
        shell->loadUtilityHTML(html);
}

void LWBackend::loadUtilityHtml_label_(const QString &html, const QString &label)
{
    const PageCall call;
    if (ShellPages *shell = ShellRoles::pages()) {
        shell->loadUtilityHTML(html);
        shell->setUtilityLabel(label);
    }
}

void LWBackend::loadUtilityWithHtml_path_(const QString &html, const QString &basePath)
{
    const PageCall call;
    if (ShellPages *shell = ShellRoles::pages())
        shell->loadUtilityHTML(html, basePath);
}

void LWBackend::loadHtml_label_withBasePath_(const QString &html, const QString &label, const QString &basePath)
{
    const PageCall call;
    if (ShellPages *shell = ShellRoles::pages()) {
        shell->setUtilityLabel(label);
        shell->loadUtilityHTML(html, basePath);
    }
}

void LWBackend::loadUtilityWithHtmlFile_(const QString &path)
{
    const PageCall call;
    if (ShellPages *shell = ShellRoles::pages())
        shell->loadUtilityHTMLFile(path, {});
}

void LWBackend::loadUtility_label_(const QString &pathOrHTML, const QString &label)
{
    const PageCall call;
    ShellPages *shell = ShellRoles::pages();
    if (!shell)
        return;
    if (!QFileInfo(pathOrHTML).isFile()) {
        loadUtilityHtml_label_(pathOrHTML, label);
        return;
    }
    shell->loadUtilityHTMLFile(pathOrHTML, {});
    shell->setUtilityLabel(label);
}

void LWBackend::loadUtility_label_cookies_(const QString &path, const QString &label, const QString &cookiesJSON)
{
    const PageCall call;
    if (ShellPages *shell = ShellRoles::pages()) {
        shell->loadUtilityHTMLFile(path, parsedArray(cookiesJSON, "loadUtility:label:cookies:"));
        shell->setUtilityLabel(label);
    }
}

void LWBackend::loadEditorUtility_label_mode_(const QString &content, const QString &label, const QString &mode)
{
    const PageCall call;
    if (ShellPages *shell = ShellRoles::pages()) {
        shell->openUtilityView();
        shell->loadUtilityEditor(content, mode);
        shell->setUtilityLabel(label);
    }
}

void LWBackend::registerPluginMenu_(const QString &titlesJSON)
{
    const PageCall call;
    QStringList titles;
    for (const QVariant &title : parsedArray(titlesJSON, "registerPluginMenu:"))
        titles.append(title.toString());
    if (ShellPages *shell = ShellRoles::pages())
        shell->setUtilityPluginMenu(titles);
}

void LWBackend::utilityViewMenuItemClicked_(const QString &title)
{
    const PageCall call;
    EditorCommand::send(QStringLiteral("$Core.currentPlugin.menu()['%1']()").arg(escapedForJavascript(title)));
}
