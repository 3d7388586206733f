#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>

#include <functional>

class QImage;

// The editor page, the utility pane's page and what fills the editor area.
class ShellPages
{
public:
    virtual ~ShellPages() = default;

    // sendToEditor() queues a script behind every script sent before it and
    // returns at once; nothing waits for the page. The evaluate calls wait
    // for the script's string value ("" for any non-string or undefined
    // result) and are only for the shell's own events: a page cannot answer
    // while one of its calls into the backend is being handled (see PageCall).
    virtual void sendToEditor(const QString &script) = 0;
    virtual QString evaluateInEditor(const QString &script) = 0;
    // Evaluates script without waiting and hands its string value to answered.
    virtual void evaluateInEditor(const QString &script, const std::function<void(const QString &)> &answered) = 0;
    virtual QString evaluateInUtility(const QString &script) = 0;

    // The utility pane under the editor and the page it shows.
    virtual bool isUtilityViewVisible() = 0;
    virtual void openUtilityView() = 0;
    virtual void closeUtilityView() = 0;
    virtual void setUtilityLabel(const QString &label) = 0;
    virtual void loadUtilityHTML(const QString &html) = 0;
    virtual void loadUtilityHTML(const QString &html, const QString &basePath) = 0;
    // A path (leading "/") or URL; cookies are objects with "domain", "path", "name", "value".
    virtual void loadUtilityHTMLFile(const QString &pathOrURL, const QVariantList &cookies) = 0;
    virtual void loadUtilityEditor(const QString &content, const QString &mode) = 0;
    // The utility pane's plugin pop-up: hidden for no titles, else the titles after its title item.
    virtual void setUtilityPluginMenu(const QStringList &titles) = 0;

    // What fills the editor area: the editor itself, or an image preview in
    // its place (both also hide the binary preview), and the loading spinner.
    virtual void setLoadingSpinnerVisible(bool visible) = 0;
    virtual void showEditorView() = 0;
    virtual void showImagePreview(const QImage &image) = 0;
};
