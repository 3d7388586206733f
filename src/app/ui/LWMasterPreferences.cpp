#include "app/ui/LWMasterPreferences.h"

#include "app/LWDefaults.h"
#include "app/LWPreferenceObserver.h"
#include "app/LWShellSupport.h"
#include "app/ui/Dialogs.h"
#include "app/ui/PreferencesImages.h"
#include "extensions/LWEnvironment.h"

#include <QComboBox>
#include <QFontDialog>
#include <QLabel>

#include <algorithm>

namespace {

const QString fontNameKey = QStringLiteral("LW_FontName");

QStringList sortedSpecNames()
{
    const LWEnvironment *environment = LWEnvironment::shared();
    QStringList names = environment ? environment->specNames().keys() : QStringList();
    std::sort(names.begin(), names.end(),
              [](const QString &left, const QString &right) { return left.localeAwareCompare(right) < 0; });
    return names;
}

}

const QStringList &LWMasterPreferences::pageIdentifiers()
{
    static const QStringList identifiers{QStringLiteral("General"), QStringLiteral("Files"),
                                         QStringLiteral("Editor"), QStringLiteral("Pro"),
                                         QStringLiteral("Updates")};
    return identifiers;
}

LWMasterPreferences::LWMasterPreferences(QWidget *mainWindow, LWViewMenuController &view)
    : PreferencesFrame(QStringLiteral("Preferences"), mainWindow),
      specs(sortedSpecNames())
{
    // Lives as long as the window, so changes reach the window and the editor while it is open.
    new LWPreferenceObserver(*LWDefaults::shared(), view, this);
    setObjectName(QStringLiteral("masterPreferences"));
    LWShellSupport::noteInstalledState();
    const QList<QWidget *> pages{generalPage(), filesPage(), editorPage(), proPage(), updatesPage()};
    for (int index = 0; index < pages.size(); ++index) {
        const QString &identifier = pageIdentifiers().at(index);
        addPage(identifier, PreferencesImages::image(identifier), pages.at(index));
    }
    selectPage(QStringLiteral("General"));
}

void LWMasterPreferences::changeFont(const QFont &font)
{
    const QString family = font.family();
    qInfo("Font changed!!! %s", qUtf8Printable(family));
    if (family.isEmpty())
        return;
    if (fontNamePopup->findData(family) < 0)
        fontNamePopup->addItem(family, family);
    fontNamePopup->setCurrentIndex(fontNamePopup->findData(family));
    LWDefaults::shared()->setString(fontNameKey, family);
}

void LWMasterPreferences::showFontDialog()
{
    auto *dialog = new QFontDialog(QFont(LWDefaults::shared()->fontName(),
                                         static_cast<int>(LWDefaults::shared()->integerForKey("LW_FontSize"))),
                                   this);
    dialog->setObjectName(QStringLiteral("fontDialog"));
    dialog->setOption(QFontDialog::MonospacedFonts);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    connect(dialog, &QFontDialog::fontSelected, this, &LWMasterPreferences::changeFont);
    dialog->open();
    qInfo("FINISHED: ");
}

void LWMasterPreferences::installShellSupport()
{
    const LWShellSupport::Report report = LWShellSupport::install();
    showShellSupportState();
    Dialogs::alert(this, report.title, report.informativeText);
}

void LWMasterPreferences::showShellSupportState()
{
    const bool installed = LWDefaults::shared()->boolForKey(QStringLiteral("LW_ShellInstalled"));
    shellSupportState->setText(installed ? QStringLiteral("Installed as %1").arg(LWShellSupport::target())
                                         : QStringLiteral("Not installed"));
}
