#pragma once

#include <QString>
#include <QVariant>

#include <utility>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

// Controls bound to one setting each: a control shows the stored value,
// writes what the user sets into the store at once, and follows later
// changes of the key made elsewhere (the View menu, a reset).
namespace PreferenceBindings {

// A list of (title, stored value) pairs.
using Choices = QList<std::pair<QString, QVariant>>;

void bindCheckBox(QCheckBox *box, const QString &key);
// Stores when editing ends or an arrow is used, not on every typed digit.
void bindSpinBox(QSpinBox *box, const QString &key);
// A fixed list of choices; a stored value not among them is added as its own title.
void bindChoices(QComboBox *box, const QString &key, const Choices &choices);
// An editable list of numbers; anything typed that is not a whole number
// from 1 to 999 is put back to the stored value.
void bindNumberCombo(QComboBox *box, const QString &key, const QList<int> &suggested);
// A regular expression; an invalid one is not stored, and problem says why.
void bindPattern(QLineEdit *field, QLabel *problem, const QString &key);

}
