#include "app/ui/PreferenceBindings.h"

#include "app/LWDefaults.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QSpinBox>

namespace PreferenceBindings {

namespace {

LWDefaults &store()
{
    return *LWDefaults::shared();
}

// Runs show now and whenever key changes, with the control's signals held
// back so that showing a value never writes it.
template <typename Control, typename Show>
void follow(Control *control, const QString &key, Show show)
{
    const auto showBlocked = [control, show] {
        const QSignalBlocker blocker(control);
        show();
    };
    showBlocked();
    QObject::connect(&store(), &LWDefaults::valueChanged, control, [key, showBlocked](const QString &changed) {
        if (changed == key)
            showBlocked();
    });
}

int indexOfValue(const QComboBox *box, const QVariant &value)
{
    for (int index = 0; index < box->count(); ++index)
        if (box->itemData(index).toString() == value.toString())
            return index;
    return -1;
}

}

void bindCheckBox(QCheckBox *box, const QString &key)
{
    follow(box, key, [box, key] { box->setChecked(store().boolForKey(key)); });
    QObject::connect(box, &QCheckBox::toggled, box, [key](bool on) { store().setBool(key, on); });
}

void bindSpinBox(QSpinBox *box, const QString &key)
{
    box->setKeyboardTracking(false);
    follow(box, key, [box, key] { box->setValue(static_cast<int>(store().integerForKey(key))); });
    QObject::connect(box, &QSpinBox::valueChanged, box, [key](int value) { store().setInteger(key, value); });
}

void bindChoices(QComboBox *box, const QString &key, const Choices &choices)
{
    for (const auto &[title, value] : choices)
        box->addItem(title, value);
    follow(box, key, [box, key] {
        const QVariant stored = store().objectForKey(key);
        if (indexOfValue(box, stored) < 0)
            box->addItem(stored.toString(), stored);
        box->setCurrentIndex(indexOfValue(box, stored));
    });
    QObject::connect(box, &QComboBox::activated, box,
                     [box, key](int index) { store().setObject(key, box->itemData(index)); });
}

void bindNumberCombo(QComboBox *box, const QString &key, const QList<int> &suggested)
{
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    for (int number : suggested)
        box->addItem(QString::number(number));
    const auto showStored = [box, key] { box->setEditText(QString::number(store().integerForKey(key))); };
    follow(box, key, showStored);
    QObject::connect(box, &QComboBox::textActivated, box, [key, showStored](const QString &text) {
        bool isNumber = false;
        const int number = text.trimmed().toInt(&isNumber);
        if (isNumber && number >= 1 && number <= 999)
            store().setInteger(key, number);
        else
            showStored();
    });
}

void bindPattern(QLineEdit *field, QLabel *problem, const QString &key)
{
    follow(field, key, [field, key] {
        if (field->text() != store().stringForKey(key))
            field->setText(store().stringForKey(key));
    });
    problem->hide();
    QObject::connect(field, &QLineEdit::textEdited, field, [field, problem, key](const QString &text) {
        const QRegularExpression pattern(text);
        problem->setVisible(!pattern.isValid());
        if (!pattern.isValid()) {
            problem->setText(QStringLiteral("Not a valid regular expression: %1. Hidden names still follow \"%2\".")
                                 .arg(pattern.errorString(), store().stringForKey(key)));
            return;
        }
        store().setString(key, text);
    });
}

}
