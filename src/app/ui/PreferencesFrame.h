#pragma once

#include <QDialog>
#include <QHash>

class QActionGroup;
class QStackedWidget;
class QToolBar;

// A preferences window over the main window (window-modal): a strip of
// titled, pictured tabs along its top selects one page at a time, and a
// "Close" button closes it. Pages are added in tab order.
class PreferencesFrame : public QDialog
{
    Q_OBJECT

public:
    PreferencesFrame(const QString &title, QWidget *mainWindow);

    void addPage(const QString &identifier, const QIcon &image, QWidget *page);
    // An empty or unknown identifier selects nothing.
    void selectPage(const QString &identifier);
    QString selectedPage() const;

protected:
    // Return and Enter confirm what was typed into a field; they do not close
    // the window (Escape and "Close" do).
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolBar *tabStrip;
    QActionGroup *tabs;
    QStackedWidget *pages;
    QHash<QString, QWidget *> pagesByIdentifier;
};
