#pragma once

#include <QFrame>
#include <QString>
#include <QVector>

class QLineEdit;
class QListWidget;

// One row of the popup: rich text (matched letters emphasized), a dimmed
// note at the right (a key shortcut) and whether it can be chosen.
struct FuzzyPopupRow
{
    QString html;
    QString note;
    bool enabled = true;
};

// A field over a list, floating at the top of the window, as quick open and
// the command palette show it. Typing reports the query; Up and Down move
// through the rows, Enter or a click chooses one (never a disabled one),
// Escape or a click elsewhere closes it.
class FuzzyPopup : public QFrame
{
    Q_OBJECT

public:
    FuzzyPopup(QWidget *window, const QString &placeholder);

    // Shows the popup with an empty field holding the keyboard.
    void open();
    void setRows(const QVector<FuzzyPopupRow> &rows);
    void setMessage(const QString &message);

    QLineEdit *field() const { return queryField; }
    QListWidget *list() const { return rowList; }

    // The text with the letters at the positions marked as matched (class
    // "hit"), the rest escaped; positions count from offset. Rows may also
    // mark a dimmed note line with class "detail".
    static QString emphasized(const QString &text, const QVector<int> &positions, int offset = 0);

signals:
    void queryChanged(const QString &query);
    void chosen(int row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeInWindow();
    void moveSelection(int steps);
    void choose(int row);
    void focusMoved(QWidget *now);

    QLineEdit *queryField;
    QListWidget *rowList;
    QWidget *previousFocus = nullptr;
};
