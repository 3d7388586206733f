// The five pages of the preferences window and the settings their controls show.
#include "app/LWDefaults.h"
#include "app/LWPaths.h"
#include "app/LWSettingsFile.h"
#include "app/ui/LWMasterPreferences.h"
#include "app/ui/PreferenceBindings.h"
#include "app/ui/PreferenceControls.h"
#include "documents/LWTextEncoding.h"
#include "editor/StoredEditorSettings.h"
#include "extensions/LWEnvironment.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace PreferenceBindings;
using namespace PreferenceControls;

namespace {

Choices namedChoices(const QStringList &names)
{
    Choices list;
    for (const QString &name : names)
        list.append({name, name});
    return list;
}

Choices encodingChoices()
{
    const QList<std::pair<const char *, quint64>> encodings{
        {"Unicode (UTF-8)", 4},
        {"Unicode (UTF-16)", 10},
        {"Western (ASCII)", 1},
        {"Western (ISO Latin 1)", 5},
        {"Western (ISO Latin 9)", 0x8000020F},
        {"Western (Windows Latin 1)", 12},
        {"Western (Mac OS Roman)", 30},
        {"Central European (ISO Latin 2)", 9},
        {"Central European (Windows Latin 2)", 15},
        {"Cyrillic (Windows)", 11},
        {"Cyrillic (KOI8-R)", 0x80000A02},
        {"Greek (Windows)", 13},
        {"Turkish (Windows)", 14},
        {"Japanese (Shift JIS)", 8},
        {"Japanese (EUC)", 3},
        {"Japanese (ISO 2022-JP)", 21},
        {"Simplified Chinese (GB 18030)", 0x80000632},
        {"Traditional Chinese (Big 5)", 0x80000A03},
        {"Korean (EUC)", 0x80000940}};
    Choices list;
    for (const auto &[title, number] : encodings)
        if (LWTextEncoding::isSupported(number))
            list.append({QString::fromUtf8(title), QVariant::fromValue<qint64>(static_cast<qint64>(number))});
    return list;
}

QStringList monospacedFamilies()
{
    QStringList families;
    for (const QString &family : QFontDatabase::families())
        if (QFontDatabase::isFixedPitch(family))
            families << family;
    return families;
}

QStringList sortedThemeNames()
{
    const LWEnvironment *environment = LWEnvironment::shared();
    QStringList names = environment ? environment->themeNames().keys() : QStringList();
    names.sort(Qt::CaseInsensitive);
    return names;
}

}

QWidget *LWMasterPreferences::generalPage()
{
    auto *page = new QWidget;
    QFormLayout *layout = form(page);
    layout->addRow(QStringLiteral("At start:"),
                   choices(QStringLiteral("LW_DoAtStartup"),
                           {{QStringLiteral("Reopen the files and folders of the last session"), 0},
                            {QStringLiteral("Start with an untitled document"), 1}}));
    layout->addRow(QStringLiteral("On quit:"),
                   choices(QStringLiteral("LW_DoOnQuit"),
                           {{QStringLiteral("Ask when something is unsaved"), 0},
                            {QStringLiteral("Quit without asking"), 1},
                            {QStringLiteral("Quit without asking; the close button does nothing"), 2}}));
    layout->addRow(QStringLiteral("Show:"), checkBoxes(windowSwitches()));
    return page;
}

QWidget *LWMasterPreferences::filesPage()
{
    auto *page = new QWidget;
    QFormLayout *layout = form(page);
    layout->addRow(QStringLiteral("Save in:"), choices(QStringLiteral("LW_DefaultEncoding"), encodingChoices()));
    layout->addRow(QStringLiteral("New documents:"),
                   choices(QStringLiteral("LW_DefaultSpecForNew"), namedChoices(specNames())));
    layout->addRow(QStringLiteral("Folders:"),
                   checkBoxes({{QStringLiteral("List folders before files"), QStringLiteral("LW_WSFoldersOnTop")},
                               {QStringLiteral("Hide names that match:"), QStringLiteral("LW_WSDoFilter")}}));
    auto *pattern = new QLineEdit;
    pattern->setObjectName(QStringLiteral("LW_WSDoFilterRegex"));
    auto *problem = explanation(QString());
    problem->setStyleSheet(QStringLiteral("color: #b3261e"));
    bindPattern(pattern, problem, QStringLiteral("LW_WSDoFilterRegex"));
    auto *patternColumn = new QWidget;
    auto *column = new QVBoxLayout(patternColumn);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(pattern);
    column->addWidget(problem);
    layout->addRow(QStringLiteral("Pattern:"), patternColumn);
    layout->addRow(QString(), explanation(QStringLiteral("Folder listings follow these settings when they are next read.")));
    return page;
}

QWidget *LWMasterPreferences::editorPage()
{
    auto *page = new QWidget;
    QFormLayout *layout = form(page);
    QComboBox *themes = choices(QStringLiteral("LW_Theme"), namedChoices(sortedThemeNames()));
    connect(themes, &QComboBox::activated, this, [] { StoredEditorSettings::applyTheme(); });
    layout->addRow(QStringLiteral("Theme:"), themes);

    fontNamePopup = choices(QStringLiteral("LW_FontName"), namedChoices(monospacedFamilies()));
    auto *chooseFont = new QPushButton(QStringLiteral("Choose..."));
    chooseFont->setObjectName(QStringLiteral("showFontDialog"));
    connect(chooseFont, &QPushButton::clicked, this, &LWMasterPreferences::showFontDialog);
    auto *fontSize = new QComboBox;
    fontSize->setObjectName(QStringLiteral("LW_FontSize"));
    bindNumberCombo(fontSize, QStringLiteral("LW_FontSize"), {9, 10, 11, 12, 13, 14, 16, 18, 20, 24, 28, 36});
    auto *fontRow = new QHBoxLayout;
    fontRow->addWidget(fontNamePopup, 1);
    fontRow->addWidget(fontSize);
    fontRow->addWidget(chooseFont);
    layout->addRow(QStringLiteral("Font:"), fontRow);

    addEditorRows(layout);
    return page;
}

QWidget *LWMasterPreferences::proPage()
{
    auto *page = new QWidget;
    QFormLayout *layout = form(page);
    shellSupportState = note(QString());
    shellSupportState->setObjectName(QStringLiteral("shellSupportState"));
    showShellSupportState();
    auto *install = new QPushButton(QStringLiteral("Install lwood"));
    install->setObjectName(QStringLiteral("installShellSupport"));
    connect(install, &QPushButton::clicked, this, &LWMasterPreferences::installShellSupport);
    layout->addRow(QStringLiteral("Command line:"), shellSupportState);
    layout->addRow(QString(), install);
    layout->addRow(QString(), explanation(QStringLiteral("\"lwood FILE\" opens files in the running editor, "
                                                  "\"lwood FILE:LINE\" goes to a line and \"lwood -w FILE\" waits "
                                                  "until the document is closed (EDITOR=\"lwood -w\").")));
    layout->addRow(QStringLiteral("Settings file:"), note(LWSettingsFile::path()));
    layout->addRow(QStringLiteral("Data folder:"), note(LWPaths::dataRoot()));
    return page;
}

QWidget *LWMasterPreferences::updatesPage()
{
    auto *page = new QWidget;
    QFormLayout *layout = form(page);
    layout->addRow(QStringLiteral("Version:"), note(QStringLiteral("Larkwood %1 (build %2)")
                                                        .arg(QStringLiteral(LARKWOOD_VERSION))
                                                        .arg(LWPaths::buildNumber())));
    layout->addRow(QString(), explanation(QStringLiteral("Updates arrive with the package Larkwood was installed from; "
                                                  "your system's package manager installs them.")));
    return page;
}
