#pragma once

#include "app/ui/PreferenceBindings.h"

#include <QList>
#include <QString>

#include <utility>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QSpinBox;
class QWidget;

// The controls of the preferences pages, each bound to its setting and
// named after its key, so a page reads as a list of rows.
namespace PreferenceControls {

QFormLayout *form(QWidget *page);
QCheckBox *checkBox(const QString &title, const QString &key);
// Check boxes (title, key) stacked in one form row.
QWidget *checkBoxes(const QList<std::pair<QString, QString>> &titlesAndKeys);
QComboBox *choices(const QString &key, const PreferenceBindings::Choices &titlesAndValues);
QSpinBox *spinBox(const QString &key, int minimum, int maximum);
// Selectable text on one line (values, paths), and wrapping explanatory text.
QLabel *note(const QString &text);
QLabel *explanation(const QString &text);

// The on/off rows (title, key) for the parts of the window and of the editor.
using Switches = QList<std::pair<QString, QString>>;
const Switches &windowSwitches();
// Tab size, wrap limit and the editor's on/off rows.
void addEditorRows(QFormLayout *layout);

}
