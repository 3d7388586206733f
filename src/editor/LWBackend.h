#pragma once

#include "terminal/LWTerminalSession.h"
#include "terminal/Terminal.h"

#include <QFuture>
#include <QObject>
#include <QString>

class QVariant;

// The one native object the editor pages call, published in them as "core".
// Script names follow the selector rule (every ":" becomes "_"), so the page
// calls core.getTempFile_withExtension_(text, ext). Call-back arguments are
// scripts with one directive (see CallbackFormat) that the backend fills and
// evaluates in the main editor page; "args", "env", "cookies" and menu
// arguments are JSON texts (comments allowed), and malformed ones count as none.
// Every operation runs as a PageCall: none waits on a page, and work that must
// answer a page later does so through its call-back or its promise.
class LWBackend : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // --- Editor and status (LWBackend.cpp)
    Q_INVOKABLE void currentLocationChanged_(const QString &location);
    Q_INVOKABLE void currentDocumentChanged();
    Q_INVOKABLE void searchOptChanged_withValue_(const QString &key, bool value);
    Q_INVOKABLE void panelToggled_(bool shown);
    Q_INVOKABLE void jslog_(const QString &message);
    Q_INVOKABLE void showStatus_(const QString &text);
    Q_INVOKABLE void hideStatus();
    Q_INVOKABLE QString getClipboard();
    Q_INVOKABLE void setClipboard_(const QString &text);

    // --- Files and documents (LWBackendFiles.cpp)
    Q_INVOKABLE QString getTempFile_withExtension_(const QString &text, const QString &extension);
    Q_INVOKABLE QString getFullPath();
    Q_INVOKABLE QString getLabel();
    Q_INVOKABLE void showInFinder_(const QString &path);
    Q_INVOKABLE void showInBrowser_(const QString &pathOrURL);
    Q_INVOKABLE void document_write_(const QString &path, const QString &text);
    Q_INVOKABLE void importjs_(const QString &path);
    Q_INVOKABLE QString file_(const QString &path);
    Q_INVOKABLE QString getBinariesIndex();

    // --- The plugin runtime (LWBackendPlugins.cpp)
    // The bundle's manifest (comments allowed) as strict JSON; "{}" when unreadable.
    Q_INVOKABLE QString pluginInfo_(const QString &bundlePath);
    // Saves the current document as the File menu's Save does, once the page's
    // call has returned; the promise answers the file's path ("" for none).
    Q_INVOKABLE QFuture<QString> saveDocument();

    // --- Dialogs (LWBackendDialogs.cpp)
    Q_INVOKABLE void inputDialogWithTitle_default_callback_(const QString &title, const QString &defaultValue,
                                                            const QString &callback);
    Q_INVOKABLE void input_callback_(const QString &title, const QString &callback);
    Q_INVOKABLE void dialogInput_callback_(const QString &title, const QString &callback);
    Q_INVOKABLE void alertDialogWithTitle_information_callback_(const QString &title, const QString &information,
                                                                const QString &callback);
    Q_INVOKABLE void dialogAlert_info_callback_(const QString &title, const QString &information,
                                                const QString &callback);
    Q_INVOKABLE void alert_info_(const QString &title, const QString &information);
    Q_INVOKABLE void confirmDialogWithTitle_information_callback_(const QString &title, const QString &information,
                                                                  const QString &callback);
    Q_INVOKABLE void slider_min_max_val_callback_(const QString &title, double minimum, double maximum,
                                                  double value, const QString &callback);
    Q_INVOKABLE void slider_min_max_val_change_callback_(const QString &title, double minimum, double maximum,
                                                         double value, const QString &change,
                                                         const QString &callback);

    // --- Utility pane (LWBackendUtility.cpp)
    Q_INVOKABLE void openUtilityView();
    Q_INVOKABLE void loadUtilityWithHtml_(const QString &html);
    Q_INVOKABLE void loadUtilityHtml_label_(const QString &html, const QString &label);
    Q_INVOKABLE void loadUtilityWithHtml_path_(const QString &html, const QString &basePath);
    Q_INVOKABLE void loadHtml_label_withBasePath_(const QString &html, const QString &label,
                                                  const QString &basePath);
    Q_INVOKABLE void loadUtilityWithHtmlFile_(const QString &path);
    Q_INVOKABLE void loadUtility_label_(const QString &pathOrHTML, const QString &label);
    Q_INVOKABLE void loadUtility_label_cookies_(const QString &path, const QString &label,
                                                const QString &cookiesJSON);
    Q_INVOKABLE void loadEditorUtility_label_mode_(const QString &content, const QString &label,
                                                   const QString &mode);
    Q_INVOKABLE void registerPluginMenu_(const QString &titlesJSON);
    Q_INVOKABLE void utilityViewMenuItemClicked_(const QString &title);

    // --- Processes and the terminal (LWBackendProcesses.cpp)
    Q_INVOKABLE void execute_args_(const QString &command, const QString &argsJSON);
    Q_INVOKABLE void execute_args_callback_(const QString &program, const QString &argsJSON,
                                            const QString &callback);
    // The page's promise settles when the program ends; the window never waits.
    Q_INVOKABLE QFuture<QString> exec_(const QString &argsJSON);
    Q_INVOKABLE QFuture<QString> exec_env_(const QString &argsJSON, const QString &environmentJSON);
    Q_INVOKABLE QString execApplescript_(const QString &path);
    Q_INVOKABLE QFuture<QString> terminalExec_env_action_completed_(const QString &commandJSON,
                                                           const QString &environmentJSON,
                                                           const QString &action, const QString &completed);
    Q_INVOKABLE void terminalWrite_(const QString &text);
    Q_INVOKABLE void terminalKill();
    Q_INVOKABLE bool execRun();

    // The terminal session's running command, or nullptr.
    LWTerm *termTask() const { return session.termTask(); }

private:
    // Redraws the outline once the current page call has returned.
    void reloadOutlineLater();
    void showInput(const QString &title, const QString &defaultValue, const QString &callback, bool logFilled);
    void showSlider(const QString &title, double minimum, double maximum, double value, const QString &change,
                    const QString &callback);

    Terminal terminal;
    LWTerminalSession session;
};
