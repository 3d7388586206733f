#include "app/ui/AboutDialog.h"

#include "app/LWHelpMenuController.h"
#include "app/LWPaths.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace AboutDialog {

namespace {

constexpr int minimumWidth = 420;
constexpr int creditsHeight = 160;

// The readable text of a simple RTF document: paragraphs become lines,
// hidden groups, control words and braces go.
QString plainTextOfRTF(QString rtf)
{
    rtf.remove(QRegularExpression(QStringLiteral("\\{\\\\\\*[^{}]*\\}")));
    rtf.remove(QRegularExpression(
        QStringLiteral("\\{\\\\(fonttbl|colortbl|stylesheet|info)[^{}]*(\\{[^{}]*\\}[^{}]*)*\\}")));
    rtf.replace(QRegularExpression(QStringLiteral("\\\\(par|line)\\b ?")), QStringLiteral("\n"));
    rtf.remove(QRegularExpression(QStringLiteral("\\\\'[0-9a-fA-F]{2}|\\\\[a-zA-Z]+-?\\d* ?")));
    rtf.remove(QRegularExpression(QStringLiteral("[{}\\r]")));
    return rtf.trimmed();
}

QString credits()
{
    QFile file(LWPaths::resourcePath(QStringLiteral("Credits.rtf")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return plainTextOfRTF(QString::fromUtf8(file.readAll()));
}

QLabel *centred(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

}

QDialog *show(QWidget *window)
{
    auto *dialog = new QDialog(window);
    dialog->setWindowTitle(QStringLiteral("About Larkwood"));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setMinimumWidth(minimumWidth);
    auto *layout = new QVBoxLayout(dialog);
    QLabel *name = centred(QStringLiteral("Larkwood"), dialog);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    name->setFont(large);
    layout->addWidget(name);
    layout->addWidget(centred(QStringLiteral("Version ") + LWHelpMenuController::versionText(), dialog));
    const QString home = LWHelpMenuController::homePage().toString();
    QLabel *link = centred(QStringLiteral("<a href=\"%1\">%1</a>").arg(home), dialog);
    link->setOpenExternalLinks(true);
    layout->addWidget(link);
    if (const QString text = credits(); !text.isEmpty()) {
        auto *view = new QPlainTextEdit(text, dialog);
        view->setObjectName(QStringLiteral("credits"));
        view->setReadOnly(true);
        view->setFixedHeight(creditsHeight);
        layout->addWidget(view);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok, dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    layout->addWidget(buttons);
    dialog->open();
    return dialog;
}

}
