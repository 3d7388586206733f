#include "app/ui/PreferencesFrame.h"

#include <QAction>
#include <QActionGroup>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolBar>
#include <QVBoxLayout>

PreferencesFrame::PreferencesFrame(const QString &title, QWidget *mainWindow)
    : QDialog(mainWindow),
      tabStrip(new QToolBar(this)),
      tabs(new QActionGroup(this)),
      pages(new QStackedWidget(this))
{
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(560);
    setAttribute(Qt::WA_DeleteOnClose);
    tabStrip->setObjectName(QStringLiteral("preferencesTabbar"));
    tabStrip->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    tabStrip->setIconSize(QSize(32, 32));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("closeWindow"));
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabStrip);
    layout->addWidget(pages, 1);
    layout->addWidget(buttons);
}

void PreferencesFrame::addPage(const QString &identifier, const QIcon &image, QWidget *page)
{
    QAction *tab = tabStrip->addAction(image, identifier);
    tab->setObjectName(identifier);
    tab->setCheckable(true);
    tabs->addAction(tab);
    connect(tab, &QAction::triggered, this, [this, identifier] { selectPage(identifier); });
    page->setObjectName(identifier + QStringLiteral("Page"));
    pages->addWidget(page);
    pagesByIdentifier.insert(identifier, page);
    if (pages->count() == 1)
        selectPage(identifier);
}

void PreferencesFrame::selectPage(const QString &identifier)
{
    QWidget *page = pagesByIdentifier.value(identifier);
    if (!page)
        return;
    pages->setCurrentWidget(page);
    for (QAction *tab : tabs->actions())
        tab->setChecked(tab->objectName() == identifier);
}

QString PreferencesFrame::selectedPage() const
{
    return pagesByIdentifier.key(pages->currentWidget());
}

void PreferencesFrame::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return;
    QDialog::keyPressEvent(event);
}
