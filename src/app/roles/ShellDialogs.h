#pragma once

#include <QString>
#include <QStringList>

#include <functional>

// Dialogs attached to the main window. Each returns at once; the completion
// runs when the user answers, and cancelling calls nothing.
class ShellDialogs
{
public:
    virtual ~ShellDialogs() = default;

    virtual void showAlert(const QString &title, const QString &informativeText) = 0;
    virtual void showAlert(const QString &title, const QString &informativeText,
                           const std::function<void()> &dismissed) = 0;
    // OK/Cancel confirmation: the answer is 1 for "OK", 0 for "Cancel".
    virtual void showConfirmation(const QString &title, const QString &informativeText,
                                  const std::function<void(int)> &answered) = 0;
    // Two buttons named by the caller: answers 1 for the default one, 0 for the other.
    virtual void showChoice(const QString &title, const QString &informativeText, const QString &defaultButton,
                            const QString &otherButton, const std::function<void(int)> &answered) = 0;
    // "Save" (the default) / "Don't Save" / "Cancel" for unsaved changes:
    // answers 1 for "Save", 0 for "Don't Save"; "Cancel" calls nothing.
    virtual void showSaveQuestion(const QString &title, const QString &informativeText,
                                  const std::function<void(int)> &answered) = 0;
    // One text field whose placeholder is defaultValue; answers the typed text on "OK".
    virtual void showInput(const QString &title, const QString &defaultValue,
                           const std::function<void(const QString &)> &accepted) = 0;
    // A slider; moved (may be empty) hears every movement, accepted the value on "OK".
    virtual void showSlider(const QString &title, double minimum, double maximum, double value,
                            const std::function<void(double)> &moved,
                            const std::function<void(double)> &accepted) = 0;

    // Open and save dialogs answer the chosen path (links resolved); an
    // empty file-type list allows every file. Printing plain text.
    virtual void showOpenDialog(bool files, bool folders, const QStringList &fileTypes,
                                const std::function<void(const QString &)> &chosen) = 0;
    virtual void showSaveDialog(const std::function<void(const QString &)> &chosen) = 0;
    virtual void printText(const QString &text) = 0;
};
