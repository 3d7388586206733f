#include "app/ui/Dialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace Dialogs {

namespace {

constexpr int sliderSteps = 1000;
// Wide enough that a window manager shows the title bar's text whole; the
// title is also the dialog's first line, which wraps rather than being cut.
constexpr int minimumWidth = 420;

QMessageBox *messageBox(QWidget *window, const QString &title, const QString &informativeText)
{
    auto *box = new QMessageBox(QMessageBox::Warning, title, title, QMessageBox::NoButton, window);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(informativeText);
    box->setStyleSheet(QStringLiteral("QLabel#qt_msgbox_label { font-weight: bold; }"));
    box->setWindowModality(Qt::WindowModal);
    box->setAttribute(Qt::WA_DeleteOnClose);
    // The box sizes itself to its texts; a spanning spacer keeps it wide.
    if (auto *grid = qobject_cast<QGridLayout *>(box->layout()))
        grid->addItem(new QSpacerItem(minimumWidth, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), grid->rowCount(), 0,
                      1, grid->columnCount());
    return box;
}

// A dialog with a title line, one field and "OK" / "Cancel"; accepted runs on "OK".
QDialog *fieldDialog(QWidget *window, const QString &title, QWidget *field, const std::function<void()> &accepted)
{
    auto *dialog = new QDialog(window);
    dialog->setWindowTitle(title);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setMinimumWidth(minimumWidth);
    auto *layout = new QVBoxLayout(dialog);
    auto *titleLine = new QLabel(title, dialog);
    titleLine->setTextFormat(Qt::PlainText);
    titleLine->setWordWrap(true);
    layout->addWidget(titleLine);
    field->setParent(dialog);
    field->setMinimumWidth(300);
    layout->addWidget(field);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(dialog, &QDialog::accepted, dialog, accepted);
    return dialog;
}

void answerPath(QFileDialog *dialog, const std::function<void(const QString &)> &chosen)
{
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, [chosen](const QString &path) {
        const QString resolved = QFileInfo(path).canonicalFilePath();
        chosen(resolved.isEmpty() ? path : resolved);
    });
    dialog->open();
}

}

// Both buttons share one role so that every desktop's button layout keeps
// them in the order added: the alternative first, the default one last, at
// the trailing edge where Return's button sits. Escape picks the alternative.
void choice(QWidget *window, const QString &title, const QString &informativeText, const QString &defaultTitle,
            const QString &alternativeTitle, const std::function<void(int)> &answered)
{
    QMessageBox *box = messageBox(window, title, informativeText);
    QPushButton *alternative = box->addButton(alternativeTitle, QMessageBox::ActionRole);
    QPushButton *preferred = box->addButton(defaultTitle, QMessageBox::ActionRole);
    box->setDefaultButton(preferred);
    box->setEscapeButton(alternative);
    QObject::connect(box, &QMessageBox::finished, box, [box, preferred, answered] {
        answered(box->clickedButton() == preferred ? 1 : 0);
    });
    box->open();
}

void alert(QWidget *window, const QString &title, const QString &informativeText,
           const std::function<void()> &dismissed)
{
    QMessageBox *box = messageBox(window, title, informativeText);
    box->addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    if (dismissed)
        QObject::connect(box, &QMessageBox::finished, box, [dismissed] { dismissed(); });
    box->open();
}

void okCancel(QWidget *window, const QString &title, const QString &informativeText,
              const std::function<void(int)> &answered)
{
    choice(window, title, informativeText, QStringLiteral("OK"), QStringLiteral("Cancel"), answered);
}

void yesNo(QWidget *window, const QString &title, const QString &informativeText,
           const std::function<void(int)> &answered)
{
    choice(window, title, informativeText, QStringLiteral("No"), QStringLiteral("Yes"), answered);
}

void saveQuestion(QWidget *window, const QString &title, const QString &informativeText,
                  const std::function<void(int)> &answered)
{
    QMessageBox *box = messageBox(window, title, informativeText);
    QPushButton *save = box->addButton(QStringLiteral("Save"), QMessageBox::AcceptRole);
    QPushButton *discard = box->addButton(QStringLiteral("Don't Save"), QMessageBox::DestructiveRole);
    box->setEscapeButton(box->addButton(QStringLiteral("Cancel"), QMessageBox::RejectRole));
    box->setDefaultButton(save);
    QObject::connect(box, &QMessageBox::finished, box, [box, save, discard, answered] {
        if (box->clickedButton() == save || box->clickedButton() == discard)
            answered(box->clickedButton() == save ? 1 : 0);
    });
    box->open();
}

void input(QWidget *window, const QString &title, const QString &defaultValue,
           const std::function<void(const QString &)> &accepted)
{
    auto *field = new QLineEdit;
    field->setPlaceholderText(defaultValue);
    fieldDialog(window, title, field, [field, accepted] { accepted(field->text()); })->open();
}

void slider(QWidget *window, const QString &title, double minimum, double maximum, double value,
            const std::function<void(double)> &moved, const std::function<void(double)> &accepted)
{
    auto *bar = new QSlider(Qt::Horizontal);
    bar->setRange(0, sliderSteps);
    bar->setTickPosition(QSlider::TicksBelow);
    bar->setTickInterval(sliderSteps / 10);
    const double span = maximum > minimum ? maximum - minimum : 1;
    const auto toValue = [minimum, span](int step) { return minimum + span * step / sliderSteps; };
    bar->setValue(qRound((qBound(minimum, value, maximum) - minimum) / span * sliderSteps));
    if (moved)
        QObject::connect(bar, &QSlider::valueChanged, bar, [moved, toValue](int step) { moved(toValue(step)); });
    fieldDialog(window, title, bar, [bar, accepted, toValue] { accepted(toValue(bar->value())); })->open();
}

void open(QWidget *window, bool files, bool folders, const QStringList &fileTypes,
          const std::function<void(const QString &)> &chosen)
{
    auto *dialog = new QFileDialog(window);
    dialog->setFileMode(folders && !files ? QFileDialog::Directory : QFileDialog::ExistingFile);
    dialog->setFilter(dialog->filter() | QDir::Hidden);
    if (!fileTypes.isEmpty()) {
        QStringList patterns;
        for (const QString &type : fileTypes)
            patterns << QStringLiteral("*.") + type;
        dialog->setNameFilter(patterns.join(QLatin1Char(' ')));
    }
    answerPath(dialog, chosen);
}

void save(QWidget *window, const std::function<void(const QString &)> &chosen)
{
    auto *dialog = new QFileDialog(window);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    answerPath(dialog, chosen);
}

}
