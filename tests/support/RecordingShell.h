#pragma once

#include "app/LWShell.h"

#include <QPair>
#include <QStringList>

// Records what the core library asks of the window, installs itself as the
// shell for its lifetime, and answers scripts with a settable value.
class RecordingShell : public LWShell
{
public:
    RecordingShell() { LWShell::setInstance(this); }
    ~RecordingShell() override { LWShell::setInstance(nullptr); }

    using LWShell::showAlert;

    QString evaluateInEditor(const QString &script) override
    {
        editorScripts.append(script);
        return scriptAnswer;
    }
    QString evaluateInUtility(const QString &script) override
    {
        utilityScripts.append(script);
        return scriptAnswer;
    }

    void setStatusMessage(const QString &message) override { statusMessages.append(message); }
    void setStatusSpinnerRunning(bool running) override { spinnerRunning = running; }
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

    void setSpecPopupTitle(const QString &title) override { specPopupTitle = title; }
    void updatePluginMenusForSpec(LWSpec *spec) override { pluginMenuSpecs.append(spec); }

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
