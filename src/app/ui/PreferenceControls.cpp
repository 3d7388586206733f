#include "app/ui/PreferenceControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace PreferenceBindings;

namespace PreferenceControls {

QFormLayout *form(QWidget *page)
{
    auto *layout = new QFormLayout(page);
    layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    layout->setLabelAlignment(Qt::AlignRight);
    return layout;
}

QCheckBox *checkBox(const QString &title, const QString &key)
{
    auto *box = new QCheckBox(title);
    box->setObjectName(key);
    bindCheckBox(box, key);
    return box;
}

QWidget *checkBoxes(const QList<std::pair<QString, QString>> &titlesAndKeys)
{
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const auto &[title, key] : titlesAndKeys)
        layout->addWidget(checkBox(title, key));
    return column;
}

QComboBox *choices(const QString &key, const PreferenceBindings::Choices &titlesAndValues)
{
    auto *box = new QComboBox;
    box->setObjectName(key);
    bindChoices(box, key, titlesAndValues);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

QSpinBox *spinBox(const QString &key, int minimum, int maximum)
{
    auto *box = new QSpinBox;
    box->setObjectName(key);
    box->setRange(minimum, maximum);
    bindSpinBox(box, key);
    return box;
}

QLabel *note(const QString &text)
{
    auto *label = new QLabel(text);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel *explanation(const QString &text)
{
    QLabel *label = note(text);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return label;
}

const Switches &windowSwitches()
{
    static const Switches rows{{QStringLiteral("Sidebar"), QStringLiteral("LW_Sidebar")},
                               {QStringLiteral("Tab bar"), QStringLiteral("LW_TabBar")},
                               {QStringLiteral("Status bar"), QStringLiteral("LW_StatusBar")},
                               {QStringLiteral("Editor panel"), QStringLiteral("LW_Panel")}};
    return rows;
}

namespace {

const Switches &editorSwitches()
{
    static const Switches rows{{QStringLiteral("Insert spaces for tabs"), QStringLiteral("LW_SoftTabs")},
                               {QStringLiteral("Wrap lines"), QStringLiteral("LW_WordWrap")},
                               {QStringLiteral("Line numbers"), QStringLiteral("LW_Gutter")},
                               {QStringLiteral("Print margin"), QStringLiteral("LW_PrintMargin")},
                               {QStringLiteral("Indentation guides"), QStringLiteral("LW_IndentationGuides")},
                               {QStringLiteral("Invisible characters"), QStringLiteral("LW_Invisibles")}};
    return rows;
}

}

void addEditorRows(QFormLayout *layout)
{
    layout->addRow(QStringLiteral("Tab size:"), spinBox(QStringLiteral("LW_TabSize"), 1, 16));
    QSpinBox *wrapLimit = spinBox(QStringLiteral("LW_WrapLimit"), 0, 400);
    wrapLimit->setSpecialValueText(QStringLiteral("Window edge"));
    layout->addRow(QStringLiteral("Wrap at column:"), wrapLimit);
    layout->addRow(QStringLiteral("Options:"), checkBoxes(editorSwitches()));
}

}
