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
    if (ShellPages *pages = ShellRoles::pages())
        pages->openUtilityView();
}

void LWBackend::loadUtilityWithHtml_(const QString &html)
{
    const PageCall call;
    if (ShellPages *pages = ShellRoles::pages())
        pages->loadUtilityHTML(html);
}

void LWBackend::loadUtilityHtml_label_(const QString &html, const QString &label)
{
    const PageCall call;
    if (ShellPages *pages = ShellRoles::pages()) {
        pages->loadUtilityHTML(html);
        pages->setUtilityLabel(label);
    }
}

void LWBackend::loadUtilityWithHtml_path_(const QString &html, const QString &basePath)
{
    const PageCall call;
    if (ShellPages *pages = ShellRoles::pages())
        pages->loadUtilityHTML(html, basePath);
}

void LWBackend::loadHtml_label_withBasePath_(const QString &html, const QString &label, const QString &basePath)
{
    const PageCall call;
    if (ShellPages *pages = ShellRoles::pages()) {
        pages->setUtilityLabel(label);
        pages->loadUtilityHTML(html, basePath);
    }
}

void LWBackend::loadUtilityWithHtmlFile_(const QString &path)
{
    const PageCall call;
    if (ShellPages *pages = ShellRoles::pages())
        pages->loadUtilityHTMLFile(path, {});
}

void LWBackend::loadUtility_label_(const QString &pathOrHTML, const QString &label)
{
    const PageCall call;
    ShellPages *pages = ShellRoles::pages();
    if (!pages)
        return;
    if (!QFileInfo(pathOrHTML).isFile()) {
        loadUtilityHtml_label_(pathOrHTML, label);
        return;
    }
    pages->loadUtilityHTMLFile(pathOrHTML, {});
    pages->setUtilityLabel(label);
}

void LWBackend::loadUtility_label_cookies_(const QString &path, const QString &label, const QString &cookiesJSON)
{
    const PageCall call;
    if (ShellPages *pages = ShellRoles::pages()) {
        pages->loadUtilityHTMLFile(path, parsedArray(cookiesJSON, "loadUtility:label:cookies:"));
        pages->setUtilityLabel(label);
    }
}

void LWBackend::loadEditorUtility_label_mode_(const QString &content, const QString &label, const QString &mode)
{
    const PageCall call;
    if (ShellPages *pages = ShellRoles::pages()) {
        pages->openUtilityView();
        pages->loadUtilityEditor(content, mode);
        pages->setUtilityLabel(label);
    }
}

void LWBackend::registerPluginMenu_(const QString &titlesJSON)
{
    const PageCall call;
    QStringList titles;
    for (const QVariant &title : parsedArray(titlesJSON, "registerPluginMenu:"))
        titles.append(title.toString());
    if (ShellPages *pages = ShellRoles::pages())
        pages->setUtilityPluginMenu(titles);
}

void LWBackend::utilityViewMenuItemClicked_(const QString &title)
{
    const PageCall call;
    EditorCommand::send(QStringLiteral("$Core.currentPlugin.menu()['%1']()").arg(escapedForJavascript(title)));
}
