#pragma once

#include <QMainWindow>
#include <QStringList>

class ImagePreview;
class LWStatusBar;
class QImage;
class QLabel;
class QLineEdit;
class QMenu;
class QProgressBar;
class QSplitter;
class QStackedWidget;
class QToolButton;
class TabBarView;
class WorkspaceOutline;

// The editor window: the workspace outline under its filter field on the left; on the right the tab
// bar over the editor page (or an image preview in its place) and, under a
// splitter, the utility pane with its label, plugin pop-up and page; the
// status bar along the bottom. The sidebar keeps its width when the window
// is resized and when it is hidden and shown again.
class LWMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    LWMainWindow(QWidget *editorView, QWidget *utilityView, QWidget *parent = nullptr);

    QWidget *editorView() const { return editor; }
    WorkspaceOutline *outline() const { return workspaceOutline; }
    QLineEdit *outlineFilterField() const { return outlineFilter; }
    TabBarView *tabs() const { return tabBar; }
    LWStatusBar *statusArea() const { return statusPanel; }

    // Layout parts.
    void setSidebarVisible(bool visible);
    // Widths of the sidebar and of the editor side.
    QList<int> sidebarSplitSizes() const;
    void setSidebarSplitSizes(const QList<int> &sizes);
    void setTabBarVisible(bool visible);
    // The colours of the panes around the pages (sidebar, tab bar, utility
    // pane) and of the status bar.
    void setPartsPalette(const QPalette &palette);

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
    QWidget *buildSidebar();
    QWidget *buildEditorArea();
    QWidget *buildUtilityPane(QWidget *utilityView);

    QWidget *editor;
    // The filter field and the outline, shown and hidden together.
    QWidget *sidebarPane;
    QLineEdit *outlineFilter;
    WorkspaceOutline *workspaceOutline;
    TabBarView *tabBar;
    QSplitter *sidebarSplit;
    // The sidebar's width when it was last hidden.
    int sidebarWidth = 220;
    QStackedWidget *editorStack;
    ImagePreview *imagePreview;
    QProgressBar *loadingSpinner;
    QToolButton *runButton;
    QSplitter *verticalSplit;
    QWidget *utilityPane;
    QLabel *utilityLabel;
    QToolButton *pluginMenuButton;
    LWStatusBar *statusPanel;
};
