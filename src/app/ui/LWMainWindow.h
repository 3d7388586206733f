#pragma once

#include <QMainWindow>
#include <QStringList>

class DocumentTabs;
class QImage;
class QLabel;
class QMenu;
class QProgressBar;
class QSplitter;
class QStackedWidget;
class QToolButton;
class WorkspaceOutline;

// The editor window: the workspace outline on the left; on the right the tab
// bar over the editor page (or an image preview in its place) and, under a
// splitter, the utility pane with its label, plugin pop-up and page; a status
// bar with the status message, its spinner, the plugins pop-up, the language
// and the location.
class LWMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    LWMainWindow(QWidget *editorView, QWidget *utilityView, QWidget *parent = nullptr);

    QWidget *editorView() const { return editor; }
    WorkspaceOutline *outline() const { return workspaceOutline; }
    DocumentTabs *tabs() const { return documentTabs; }

    // Status bar.
    void setStatusMessage(const QString &message);
    void setStatusMessageVisible(bool visible);
    void setSpinnerRunning(bool running);
    void setSpinnerVisible(bool visible);
    void setLocationText(const QString &text);
    void setSpecTitle(const QString &title);
    // The languages offered by the status bar's language pop-up.
    void setSpecMenu(QMenu *menu);
    // The status bar's plugins pop-up.
    QMenu *statusPluginsMenu() const;

    // Layout parts.
    void setSidebarVisible(bool visible);
    // Widths of the sidebar and of the editor side.
    QList<int> sidebarSplitSizes() const;
    void setSidebarSplitSizes(const QList<int> &sizes);
    void setTabBarVisible(bool visible);

    // Editor area.
    void showEditor();
    void showImage(const QImage &image);
    void setLoadingSpinnerVisible(bool visible);
    // The button that runs the plugin bound to the current language (whose
    // key belongs to that plugin's item in the Plugins menu).
    void setRunButtonVisible(bool visible);

    // Utility pane: opening gives it a third of the height the first time.
    bool isUtilityVisible() const;
    void setUtilityVisible(bool visible);
    void setUtilityLabel(const QString &label);
    // Hidden for no titles; otherwise the titles follow the pop-up's title item.
    void setPluginMenuTitles(const QStringList &titles);

signals:
    void pluginMenuItemChosen(const QString &title);
    void runRequested();
    // The close button was pressed; the window stays open, the application decides.
    void closeRequested();
    // Local files or folders were dropped on the window.
    void pathsDropped(const QStringList &paths);

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    // Files dragged over the editor pages are taken here too, so a dropped
    // file never replaces a page; other drags (text) go to the pages.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void catchFileDropsOn(QWidget *view);
    QWidget *buildEditorArea();
    QWidget *buildUtilityPane(QWidget *utilityView);
    void buildStatusBar();

    QWidget *editor;
    WorkspaceOutline *workspaceOutline;
    DocumentTabs *documentTabs;
    QStackedWidget *editorStack;
    QLabel *imagePreview;
    QProgressBar *loadingSpinner;
    QToolButton *runButton;
    QSplitter *sidebarSplit;
    QSplitter *verticalSplit;
    QWidget *utilityPane;
    QLabel *utilityLabel;
    QToolButton *pluginMenuButton;
    QLabel *statusMessage;
    QProgressBar *statusSpinner;
    QToolButton *specButton;
    QToolButton *pluginsButton;
    QLabel *locationField;
};
