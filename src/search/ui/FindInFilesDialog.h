#pragma once

#include "search/TextSearch.h"
#include "search/WorkspaceFiles.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// Find in files: a query with its options, searched for in every file of the
// workspace in the background. Hits (file, line, text) appear as they are
// found, under a count of the files searched; Cancel stops the search. A
// click on a hit reports its file and line.
class FindInFilesDialog : public QDialog
{
    Q_OBJECT

public:
    // files: the files to search, asked for when a search starts.
    FindInFilesDialog(QWidget *window, std::function<WorkspaceFiles::List()> files);

    // Shows the dialog with the query field selected.
    void present();
    QLineEdit *queryField() const { return query; }
    QTreeWidget *resultList() const { return results; }
    QLabel *statusLabel() const { return status; }

signals:
    void hitChosen(const QString &path, int line);

private:
    void startSearch();
    void cancelSearch();
    void addHits(const QVector<TextHit> &hits);
    void showProgress(int searched, int total);
    void showSummary(const TextSearchSummary &summary);
    void setSearching(bool searching);
    void chooseItem(const QTreeWidgetItem *item);

    std::function<WorkspaceFiles::List()> files;
    // Each searched file's path as the results show it.
    QHash<QString, QString> shownPaths;
    TextSearch search;
    QLineEdit *query;
    QCheckBox *caseSensitive;
    QCheckBox *regularExpression;
    QCheckBox *wholeWord;
    QPushButton *findButton;
    QPushButton *cancelButton;
    QLabel *status;
    QTreeWidget *results;
    int filesSearched = 0;
};
