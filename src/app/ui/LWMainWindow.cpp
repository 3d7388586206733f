#include "app/ui/LWMainWindow.h"

#include "app/ui/DocumentTabs.h"
#include "app/ui/OutlineFolderRefresh.h"
#include "app/ui/WorkspaceOutline.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPixmap>
#include <QProgressBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int spinnerWidth = 60;

QProgressBar *spinner(QWidget *parent)
{
    auto *bar = new QProgressBar(parent);
    bar->setRange(0, 1);
    bar->setTextVisible(false);
    bar->setFixedWidth(spinnerWidth);
    bar->setMaximumHeight(12);
    return bar;
}

}

LWMainWindow::LWMainWindow(QWidget *editorView, QWidget *utilityView, QWidget *parent)
    : QMainWindow(parent), editor(editorView)
{
    setWindowTitle(QStringLiteral("Larkwood"));
    setAcceptDrops(true);
    catchFileDropsOn(editorView);
    catchFileDropsOn(utilityView);
    workspaceOutline = new WorkspaceOutline(this);
    new OutlineFolderRefresh(workspaceOutline);
    verticalSplit = new QSplitter(Qt::Vertical, this);
    verticalSplit->addWidget(buildEditorArea());
    verticalSplit->addWidget(buildUtilityPane(utilityView));
    verticalSplit->setCollapsible(0, false);
    sidebarSplit = new QSplitter(Qt::Horizontal, this);
    sidebarSplit->addWidget(workspaceOutline);
    sidebarSplit->addWidget(verticalSplit);
    sidebarSplit->setStretchFactor(1, 1);
    sidebarSplit->setSizes({220, 980});
    setCentralWidget(sidebarSplit);
    buildStatusBar();
    utilityPane->hide();
}

QWidget *LWMainWindow::buildEditorArea()
{
    auto *area = new QWidget(this);
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    documentTabs = new DocumentTabs(area);
    loadingSpinner = spinner(area);
    loadingSpinner->setRange(0, 0);
    loadingSpinner->hide();
    runButton = new QToolButton(area);
    runButton->setText(QStringLiteral("Run"));
    runButton->hide();
    connect(runButton, &QToolButton::clicked, this, &LWMainWindow::runRequested);
    auto *tabRow = new QHBoxLayout;
    tabRow->addWidget(documentTabs, 1);
    tabRow->addWidget(loadingSpinner);
    tabRow->addWidget(runButton);
    layout->addLayout(tabRow);
    editorStack = new QStackedWidget(area);
    imagePreview = new QLabel(editorStack);
    imagePreview->setAlignment(Qt::AlignCenter);
    editorStack->addWidget(editor);
    editorStack->addWidget(imagePreview);
    layout->addWidget(editorStack, 1);
    return area;
}

QWidget *LWMainWindow::buildUtilityPane(QWidget *utilityView)
{
    utilityPane = new QWidget(this);
    auto *layout = new QVBoxLayout(utilityPane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *header = new QHBoxLayout;
    header->setContentsMargins(6, 2, 6, 2);
    utilityLabel = new QLabel(utilityPane);
    pluginMenuButton = new QToolButton(utilityPane);
    pluginMenuButton->setText(QStringLiteral("Plugin"));
    pluginMenuButton->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(pluginMenuButton);
    menu->addAction(QStringLiteral("Plugin"))->setEnabled(false);
    connect(menu, &QMenu::triggered, this, [this](QAction *item) { emit pluginMenuItemChosen(item->text()); });
    pluginMenuButton->setMenu(menu);
    pluginMenuButton->hide();
    header->addWidget(utilityLabel, 1);
    header->addWidget(pluginMenuButton);
    layout->addLayout(header);
    layout->addWidget(utilityView, 1);
    return utilityPane;
}

void LWMainWindow::buildStatusBar()
{
    statusMessage = new QLabel(this);
    statusSpinner = spinner(this);
    specButton = new QToolButton(this);
    specButton->setPopupMode(QToolButton::InstantPopup);
    specButton->setAutoRaise(true);
    locationField = new QLabel(this);
    pluginsButton = new QToolButton(this);
    pluginsButton->setText(QStringLiteral("Plugins"));
    pluginsButton->setPopupMode(QToolButton::InstantPopup);
    pluginsButton->setAutoRaise(true);
    pluginsButton->setMenu(new QMenu(pluginsButton));
    statusBar()->addWidget(statusMessage, 1);
    statusBar()->addWidget(statusSpinner);
    statusBar()->addPermanentWidget(pluginsButton);
    statusBar()->addPermanentWidget(specButton);
    statusBar()->addPermanentWidget(locationField);
    statusSpinner->hide();
}

void LWMainWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    emit closeRequested();
}

namespace {

QStringList localPaths(const QMimeData *data)
{
    QStringList paths;
    if (!data)
        return paths;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    return paths;
}

}

void LWMainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!localPaths(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void LWMainWindow::dropEvent(QDropEvent *event)
{
    const QStringList paths = localPaths(event->mimeData());
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    emit pathsDropped(paths);
}

void LWMainWindow::catchFileDropsOn(QWidget *view)
{
    view->installEventFilter(this);
    for (QWidget *child : view->findChildren<QWidget *>())
        child->installEventFilter(this);
}

bool LWMainWindow::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ChildAdded:
        // The web view puts its page's widget in only once the page exists.
        if (auto *child = qobject_cast<QWidget *>(static_cast<QChildEvent *>(event)->child()))
            child->installEventFilter(this);
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
        if (auto *drag = static_cast<QDragMoveEvent *>(event); !localPaths(drag->mimeData()).isEmpty()) {
            drag->acceptProposedAction();
            return true;
        }
        break;
    case QEvent::Drop:
        if (auto *drop = static_cast<QDropEvent *>(event); !localPaths(drop->mimeData()).isEmpty()) {
            dropEvent(drop);
            return true;
        }
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(watched, event);
}

void LWMainWindow::setStatusMessage(const QString &message)
{
    statusMessage->setText(message);
    statusMessage->setVisible(!message.isEmpty());
}

void LWMainWindow::setStatusMessageVisible(bool visible)
{
    statusMessage->setVisible(visible);
}

void LWMainWindow::setSpinnerRunning(bool running)
{
    statusSpinner->setRange(0, running ? 0 : 1);
    statusSpinner->setVisible(running);
}

void LWMainWindow::setSpinnerVisible(bool visible)
{
    statusSpinner->setVisible(visible);
}

void LWMainWindow::setLocationText(const QString &text)
{
    locationField->setText(text);
}

void LWMainWindow::setSpecTitle(const QString &title)
{
    specButton->setText(title);
}

void LWMainWindow::setSpecMenu(QMenu *menu)
{
    specButton->setMenu(menu);
}

QMenu *LWMainWindow::statusPluginsMenu() const
{
    return pluginsButton->menu();
}

void LWMainWindow::setSidebarVisible(bool visible)
{
    workspaceOutline->setVisible(visible);
}

QList<int> LWMainWindow::sidebarSplitSizes() const
{
    return sidebarSplit->sizes();
}

void LWMainWindow::setSidebarSplitSizes(const QList<int> &sizes)
{
    sidebarSplit->setSizes(sizes);
}

void LWMainWindow::setTabBarVisible(bool visible)
{
    documentTabs->setVisible(visible);
}

void LWMainWindow::showEditor()
{
    editorStack->setCurrentWidget(editor);
}

void LWMainWindow::showImage(const QImage &image)
{
    imagePreview->setPixmap(QPixmap::fromImage(image));
    editorStack->setCurrentWidget(imagePreview);
}

void LWMainWindow::setLoadingSpinnerVisible(bool visible)
{
    loadingSpinner->setVisible(visible);
}

void LWMainWindow::setRunButtonVisible(bool visible)
{
    runButton->setVisible(visible);
}

bool LWMainWindow::isUtilityVisible() const
{
    return !utilityPane->isHidden();
}

void LWMainWindow::setUtilityVisible(bool visible)
{
    if (visible == isUtilityVisible())
        return;
    utilityPane->setVisible(visible);
    if (visible) {
        const int height = verticalSplit->height();
        verticalSplit->setSizes({height * 2 / 3, height / 3});
    }
}

void LWMainWindow::setUtilityLabel(const QString &label)
{
    utilityLabel->setText(label);
}

void LWMainWindow::setPluginMenuTitles(const QStringList &titles)
{
    QMenu *menu = pluginMenuButton->menu();
    const QList<QAction *> items = menu->actions();
    for (int i = 1; i < items.size(); ++i)
        delete items.at(i);
    for (const QString &title : titles)
        menu->addAction(title);
    pluginMenuButton->setVisible(!titles.isEmpty());
}
