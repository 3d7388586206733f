#include "editor/LWBackend.h"

#include "editor/PageCall.h"

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellRoles.h"
#include "editor/CallbackFormat.h"
#include "editor/EditorCommand.h"
#include "editor/JavaScriptEscape.h"

void LWBackend::inputDialogWithTitle_default_callback_(const QString &title, const QString &defaultValue,
                                                       const QString &callback)
{
    const PageCall call;
    showInput(title, defaultValue, callback, false);
}

void LWBackend::input_callback_(const QString &title, const QString &callback)
{
    const PageCall call;
    showInput(title, QString(), callback, true);
}

void LWBackend::dialogInput_callback_(const QString &title, const QString &callback)
{
    const PageCall call;
    showInput(title, QString(), callback, false);
}

void LWBackend::showInput(const QString &title, const QString &defaultValue, const QString &callback,
                          bool logFilled)
{
    if (ShellDialogs *dialogs = ShellRoles::dialogs()) {
        dialogs->showInput(title, defaultValue, [callback, logFilled](const QString &typed) {
            const QString script = CallbackFormat::filled(callback, escapedForJavascript(typed));
            if (logFilled)
                qInfo("---> %s", qPrintable(script));
            EditorCommand::send(script);
        });
    }
}

void LWBackend::alertDialogWithTitle_information_callback_(const QString &title, const QString &information,
                                                           const QString &callback)
{
    const PageCall call;
    if (ShellDialogs *dialogs = ShellRoles::dialogs())
        dialogs->showAlert(title, information, [callback] { EditorCommand::send(callback); });
}

void LWBackend::dialogAlert_info_callback_(const QString &title, const QString &information,
                                           const QString &callback)
{
    const PageCall call;
    if (callback.isEmpty())
        alert_info_(title, information);
    else
        alertDialogWithTitle_information_callback_(title, information, callback);
}

void LWBackend::alert_info_(const QString &title, const QString &information)
{
    const PageCall call;
    if (ShellDialogs *dialogs = ShellRoles::dialogs())
        dialogs->showAlert(title, information);
}

void LWBackend::confirmDialogWithTitle_information_callback_(const QString &title, const QString &information,
                                                             const QString &callback)
{
    const PageCall call;
    if (ShellDialogs *dialogs = ShellRoles::dialogs()) {
        dialogs->showConfirmation(title, information, [callback](int answer) {
            EditorCommand::send(CallbackFormat::filled(callback, answer));
        });
    }
}

void LWBackend::slider_min_max_val_callback_(const QString &title, double minimum, double maximum, double value,
                                             const QString &callback)
{
    const PageCall call;
    showSlider(title, minimum, maximum, value, QString(), callback);
}

void LWBackend::slider_min_max_val_change_callback_(const QString &title, double minimum, double maximum,
                                                    double value, const QString &change, const QString &callback)
{
    const PageCall call;
    showSlider(title, minimum, maximum, value, change, callback);
}

void LWBackend::showSlider(const QString &title, double minimum, double maximum, double value,
                           const QString &change, const QString &callback)
{
    ShellDialogs *dialogs = ShellRoles::dialogs();
    if (!dialogs)
        return;
    std::function<void(double)> moved;
    if (!change.isEmpty())
        moved = [change](double current) { EditorCommand::send(CallbackFormat::filled(change, current)); };
    dialogs->showSlider(title, minimum, maximum, value, moved, [callback](double chosen) {
        EditorCommand::send(CallbackFormat::filled(callback, chosen));
    });
}
