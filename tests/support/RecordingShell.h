#pragma once

#include "app/LWShell.h"
#include "app/roles/ShellRoles.h"
#include "documents/LWDocument.h"

#include <QImage>
#include <QPair>
#include <QStringList>

// Records what the core library asks of the window, installs itself as the
// shell for its lifetime, and answers scripts with a settable value.
class RecordingShell : public LWShell
{
public:
    RecordingShell() { ShellRoles::installAll(this); }
    ~RecordingShell() override { ShellRoles::install({}); }

    using LWShell::showAlert;

    void sendToEditor(const QString &script) override { evaluateInEditor(script); }
    void evaluateInEditor(const QString &script, const std::function<void(const QString &)> &answered) override
    {
        answered(evaluateInEditor(script));
    }
    QString evaluateInEditor(const QString &script) override
    {
        editorScripts.append(script);
        calls.append(QStringLiteral("script ") + script);
        return scriptAnswer;
    }
    QString evaluateInUtility(const QString &script) override
    {
        utilityScripts.append(script);
        return scriptAnswer;
    }

    void setStatusMessage(const QString &message) override
    {
        statusMessages.append(message);
        calls.append(QStringLiteral("status message \"%1\"").arg(message));
    }
    void setStatusSpinnerRunning(bool running) override
    {
        spinnerRunning = running;
        calls.append(running ? QStringLiteral("status spinner running") : QStringLiteral("status spinner stopped"));
    }
    void setLocationText(const QString &text) override { locationText = text; }

    void showAlert(const QString &title, const QString &informativeText) override
    {
        alerts.append({title, informativeText});
    }

    // Extension menus.
    void setRunButtonVisible(bool visible) override { runButtonVisible = visible; }
    void updateThemesMenu() override { ++themesMenuUpdates; }

    // Dialogs answer at once with the answers set below; a null answer cancels.
    void showAlert(const QString &title, const QString &informativeText,
                   const std::function<void()> &dismissed) override
    {
        alerts.append({title, informativeText});
        dismissed();
    }
    void showConfirmation(const QString &title, const QString &informativeText,
                          const std::function<void(int)> &answered) override
    {
        alerts.append({title, informativeText});
        answered(confirmationAnswer);
    }
    void showChoice(const QString &title, const QString &informativeText, const QString &,
                    const QString &, const std::function<void(int)> &answered) override
    {
        alerts.append({title, informativeText});
        answered(confirmationAnswer);
    }
    void showSaveQuestion(const QString &title, const QString &informativeText,
                          const std::function<void(int)> &answered) override
    {
        alerts.append({title, informativeText});
        answered(confirmationAnswer);
    }
    void showInput(const QString &title, const QString &defaultValue,
                   const std::function<void(const QString &)> &accepted) override
    {
        inputs.append({title, defaultValue});
        if (!inputAnswer.isNull())
            accepted(inputAnswer);
    }
    void showSlider(const QString &title, double minimum, double maximum, double value,
                    const std::function<void(double)> &moved,
                    const std::function<void(double)> &accepted) override
    {
        inputs.append({title, QStringLiteral("%1 %2 %3").arg(minimum).arg(maximum).arg(value)});
        if (moved)
            moved(sliderAnswer);
        accepted(sliderAnswer);
    }

    // Utility pane.
    bool isUtilityViewVisible() override { return utilityVisible; }
    void openUtilityView() override { utilityVisible = true; }
    void closeUtilityView() override { utilityVisible = false; }
    void setUtilityLabel(const QString &label) override { utilityLabel = label; }
    void loadUtilityHTML(const QString &html) override { utilityLoads.append({html, QString()}); }
    void loadUtilityHTML(const QString &html, const QString &basePath) override
    {
        utilityLoads.append({html, basePath});
    }
    void loadUtilityHTMLFile(const QString &pathOrURL, const QVariantList &cookies) override
    {
        utilityLoads.append({QStringLiteral("file:") + pathOrURL, QString::number(cookies.size())});
    }
    void loadUtilityEditor(const QString &content, const QString &mode) override
    {
        utilityLoads.append({QStringLiteral("editor:") + content, mode});
    }
    void setUtilityPluginMenu(const QStringList &titles) override { utilityPluginMenu = titles; }

    void setSidebarVisible(bool visible) override { calls.append(QStringLiteral("sidebar ") + shown(visible)); }
    void setTabBarVisible(bool visible) override { calls.append(QStringLiteral("tab bar ") + shown(visible)); }
    void setStatusBarVisible(bool visible) override { calls.append(QStringLiteral("status bar ") + shown(visible)); }

    void setSpecPopupTitle(const QString &title) override { specPopupTitle = title; }
    void updatePluginMenusForSpec(LWSpec *spec) override { pluginMenuSpecs.append(spec); }

    // Window, outline, tab bar, bookkeeping and file dialogs: each call is
    // logged in calls as one readable line, naming nodes by label.
    void setWindowTitle(const QString &title) override { calls.append(QStringLiteral("window title ") + title); }
    void setLoadingSpinnerVisible(bool visible) override
    {
        calls.append(QStringLiteral("loading spinner ") + shown(visible));
    }
    void showEditorView() override { calls.append(QStringLiteral("editor shown")); }
    void showImagePreview(const QImage &image) override
    {
        previewImage = image;
        calls.append(QStringLiteral("image preview %1x%2").arg(image.width()).arg(image.height()));
    }
    void setStatusMessageVisible(bool visible) override
    {
        calls.append(QStringLiteral("status message ") + shown(visible));
    }
    void setStatusSpinnerVisible(bool visible) override
    {
        calls.append(QStringLiteral("status spinner ") + shown(visible));
    }
    void reloadOutline() override { calls.append(QStringLiteral("outline reload")); }
    void selectInOutline(const std::shared_ptr<LWDocument> &document) override
    {
        calls.append(QStringLiteral("outline select ") + labelOf(document));
    }
    void expandInOutline(const std::shared_ptr<LWDocument> &document, bool withChildren) override
    {
        calls.append(QStringLiteral("outline expand %1%2")
                         .arg(document ? labelOf(document) : QStringLiteral("all"),
                              withChildren ? QStringLiteral(" with children") : QString()));
    }
    std::shared_ptr<LWDocument> selectedInOutline() override { return outlineSelection; }
    std::shared_ptr<LWDocument> nextDocumentInOutline() override { return nullptr; }
    std::shared_ptr<LWDocument> previousDocumentInOutline() override { return nullptr; }
    void openOutlineSelectionInNewTab() override { calls.append(QStringLiteral("outline open selection in new tab")); }
    void addTabWithDocument(const std::shared_ptr<LWDocument> &document) override
    {
        tabDocuments.append(document);
        calls.append(QStringLiteral("tab add ") + labelOf(document));
    }
    void setSelectedTabTitle(const QString &title) override { calls.append(QStringLiteral("tab title ") + title); }
    void showTabForDocument(const std::shared_ptr<LWDocument> &document) override
    {
        calls.append(QStringLiteral("tab show ") + labelOf(document));
    }
    void setDocumentToSelect(const std::shared_ptr<LWDocument> &document) override
    {
        documentToSelect = document;
        calls.append(QStringLiteral("to select ") + labelOf(document));
    }
    void noteRecentDocument(const QString &path) override { calls.append(QStringLiteral("recent ") + path); }
    void showOpenDialog(bool files, bool folders, const QStringList &fileTypes,
                        const std::function<void(const QString &)> &chosen) override
    {
        calls.append(QStringLiteral("open dialog files %1 folders %2 types [%3]")
                         .arg(files).arg(folders).arg(fileTypes.join(QLatin1Char(','))));
        if (!pathAnswer.isNull())
            chosen(pathAnswer);
    }
    void showSaveDialog(const std::function<void(const QString &)> &chosen) override
    {
        calls.append(QStringLiteral("save dialog"));
        if (!pathAnswer.isNull())
            chosen(pathAnswer);
    }
    void printText(const QString &text) override { calls.append(QStringLiteral("print ") + text); }

    static QString shown(bool visible) { return visible ? QStringLiteral("shown") : QStringLiteral("hidden"); }
    static QString labelOf(const std::shared_ptr<LWDocument> &document)
    {
        return document ? document->label() : QStringLiteral("(none)");
    }

    QStringList calls;
    QString pathAnswer; // null: the open and save dialogs are cancelled
    std::shared_ptr<LWDocument> outlineSelection;
    std::shared_ptr<LWDocument> documentToSelect;
    QList<std::shared_ptr<LWDocument>> tabDocuments;
    QImage previewImage;

    QString scriptAnswer;
    QStringList editorScripts;
    QStringList utilityScripts;
    QStringList statusMessages;
    bool spinnerRunning = false;
    QString locationText;
    QList<QPair<QString, QString>> alerts;
    bool runButtonVisible = false;
    int themesMenuUpdates = 0;
    QList<QPair<QString, QString>> inputs;
    int confirmationAnswer = 1;
    QString inputAnswer;
    double sliderAnswer = 0;
    bool utilityVisible = false;
    QString utilityLabel;
    QList<QPair<QString, QString>> utilityLoads;
    QStringList utilityPluginMenu;
    QString specPopupTitle;
    QList<LWSpec *> pluginMenuSpecs;
};
