#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

// The shared dialogs, each attached to a window (window-modal). A call
// returns at once; the completion runs when the user answers. Cancelling
// calls nothing.
namespace Dialogs {

// Warning-style alert with one "OK" button; dismissed may be empty.
void alert(QWidget *window, const QString &title, const QString &informativeText,
           const std::function<void()> &dismissed = {});
// Two buttons: answers 1 for the default one, 0 for the other.
void choice(QWidget *window, const QString &title, const QString &informativeText, const QString &defaultTitle,
            const QString &otherTitle, const std::function<void(int)> &answered);
// "OK" / "Cancel": answers 1 for "OK", 0 for "Cancel".
void okCancel(QWidget *window, const QString &title, const QString &informativeText,
              const std::function<void(int)> &answered);
// "No" (the default, so Return is the safe answer) / "Yes": answers 0 for "Yes", 1 for "No".
void yesNo(QWidget *window, const QString &title, const QString &informativeText,
           const std::function<void(int)> &answered);
// "Save" (default) / "Don't Save" / "Cancel": answers 1 for "Save", 0 for
// "Don't Save"; "Cancel" (and Escape) calls nothing.
void saveQuestion(QWidget *window, const QString &title, const QString &informativeText,
                  const std::function<void(int)> &answered);
// One text field with defaultValue as its grey hint, so "OK" on an untouched
// field answers "".
void input(QWidget *window, const QString &title, const QString &defaultValue,
           const std::function<void(const QString &)> &accepted);
// A slider with ten tick marks; moved hears every movement.
void slider(QWidget *window, const QString &title, double minimum, double maximum, double value,
            const std::function<void(double)> &moved, const std::function<void(double)> &accepted);
// Open and save panels answer the chosen path with links resolved.
void open(QWidget *window, bool files, bool folders, const QStringList &fileTypes,
          const std::function<void(const QString &)> &chosen);
void save(QWidget *window, const std::function<void(const QString &)> &chosen);

}
