#include "app/ui/LWMainWindow.h"

#include "app/ui/ImagePreview.h"
#include "app/ui/LWStatusBar.h"
#include "app/ui/OutlineFolderRefresh.h"
#include "app/ui/Spinner.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/ui/TabBarView.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int initialWindowWidth = 1200;

}

LWMainWindow::LWMainWindow(QWidget *editorView, QWidget *utilityView, QWidget *parent)
    : QMainWindow(parent), editor(editorView)
{
    setWindowTitle(QStringLiteral("Larkwood"));
    setAcceptDrops(true);
    catchFileDropsOn(editorView);
    catchFileDropsOn(utilityView);
    verticalSplit = new QSplitter(Qt::Vertical, this);
    verticalSplit->addWidget(buildEditorArea());
    verticalSplit->addWidget(buildUtilityPane(utilityView));
    verticalSplit->setCollapsible(0, false);
    sidebarSplit = new QSplitter(Qt::Horizontal, this);
    sidebarSplit->addWidget(buildSidebar());
    sidebarSplit->addWidget(verticalSplit);
    sidebarSplit->setStretchFactor(0, 0);
    sidebarSplit->setStretchFactor(1, 1);
    sidebarSplit->setSizes({sidebarWidth, initialWindowWidth - sidebarWidth});
    setCentralWidget(sidebarSplit);
    statusPanel = new LWStatusBar(this);
    setStatusBar(statusPanel);
    utilityPane->hide();
}

// The filter field over the outline; the rows follow its text once the
// keystroke's event is over.
QWidget *LWMainWindow::buildSidebar()
{
    auto *sidebar = new QWidget(this);
    sidebarPane = sidebar;
    auto *layout = new QVBoxLayout(sidebar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    outlineFilter = new QLineEdit(sidebar);
    outlineFilter->setObjectName(QStringLiteral("fileOutlineFilter"));
    outlineFilter->setPlaceholderText(QStringLiteral("Filter"));
    outlineFilter->setClearButtonEnabled(true);
    workspaceOutline = new WorkspaceOutline(sidebar);
    new OutlineFolderRefresh(workspaceOutline);
    connect(outlineFilter, &QLineEdit::textChanged, workspaceOutline, &WorkspaceOutline::setFilterText,
            Qt::QueuedConnection);
    layout->addWidget(outlineFilter);
    layout->addWidget(workspaceOutline, 1);
    return sidebar;
}

QWidget *LWMainWindow::buildEditorArea()
{
    auto *area = new QWidget(this);
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    tabBar = new TabBarView(area);
    loadingSpinner = makeSpinner(area);
    loadingSpinner->setRange(0, 0);
    loadingSpinner->hide();
    runButton = new QToolButton(area);
    runButton->setText(QStringLiteral("Run"));
    runButton->hide();
    connect(runButton, &QToolButton::clicked, this, &LWMainWindow::runRequested);
    auto *tabRow = new QHBoxLayout;
    tabRow->addWidget(tabBar, 1);
    tabRow->addWidget(loadingSpinner);
    tabRow->addWidget(runButton);
    layout->addLayout(tabRow);
    editorStack = new QStackedWidget(area);
    imagePreview = new ImagePreview(editorStack);
    editorStack->addWidget(editor);
    editorStack->addWidget(imagePreview);
    layout->addWidget(editorStack, 1);
    return area;
}

QWidget *LWMainWindow::buildUtilityPane(QWidget *utilityView)
{
    utilityPane = new QWidget(this);
    utilityPane->setAutoFillBackground(true);
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

void LWMainWindow::setSidebarVisible(bool visible)
{
    if (visible == !sidebarPane->isHidden())
        return;
    if (!visible) {
        sidebarWidth = sidebarPane->width();
        sidebarPane->hide();
        return;
    }
    const int total = sidebarSplit->width();
    sidebarPane->show();
    sidebarSplit->setSizes({sidebarWidth, std::max(0, total - sidebarWidth - sidebarSplit->handleWidth())});
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
    tabBar->setVisible(visible);
}

void LWMainWindow::setPartsPalette(const QPalette &palette)
{
    // Everything but the menu bar and the dialogs: the panes with their
    // dividers, and the status bar.
    for (QWidget *part : {centralWidget(), static_cast<QWidget *>(statusPanel)}) {
        part->setPalette(palette);
        part->setAutoFillBackground(true);
    }
}

void LWMainWindow::showEditor()
{
    editorStack->setCurrentWidget(editor);
}

void LWMainWindow::showImage(const QImage &image)
{
    imagePreview->setImage(image);
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
