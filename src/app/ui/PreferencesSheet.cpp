#include "app/ui/PreferencesSheet.h"

#include "app/ui/PreferenceControls.h"
#include "app/ui/PreferencesImages.h"

#include <QFormLayout>

using namespace PreferenceControls;

PreferencesSheet::PreferencesSheet(QWidget *mainWindow, LWViewMenuController &view)
    : PreferencesFrame(QStringLiteral("Preferences"), mainWindow),
      controller(view)
{
    setObjectName(QStringLiteral("preferencesSheet"));
    auto *general = new QWidget;
    form(general)->addRow(QStringLiteral("Show:"), checkBoxes(windowSwitches()));
    auto *advanced = new QWidget;
    QFormLayout *layout = form(advanced);
    addEditorRows(layout);
    addPage(QStringLiteral("General"), PreferencesImages::image(QStringLiteral("General")), general);
    addPage(QStringLiteral("Advanced"), PreferencesImages::image(QStringLiteral("Pro")), advanced);
    connect(this, &QDialog::finished, this, [this] { controller.close(); });
}
