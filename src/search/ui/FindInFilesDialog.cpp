#include "search/ui/FindInFilesDialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace {

constexpr int PathRole = Qt::UserRole;
constexpr int LineRole = Qt::UserRole + 1;

}

FindInFilesDialog::FindInFilesDialog(QWidget *window, std::function<WorkspaceFiles::List()> files)
    : QDialog(window), files(std::move(files)), query(new QLineEdit(this)),
      caseSensitive(new QCheckBox(tr("Case Sensitive"), this)),
      regularExpression(new QCheckBox(tr("Regular Expression"), this)),
      wholeWord(new QCheckBox(tr("Whole Words"), this)), findButton(new QPushButton(tr("Find"), this)),
      cancelButton(new QPushButton(tr("Cancel"), this)), status(new QLabel(this)), results(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("findInFilesDialog"));
    setWindowTitle(tr("Find in Files"));
    query->setPlaceholderText(tr("Text to find in the workspace's files"));
    findButton->setDefault(true);
    cancelButton->setEnabled(false);
    results->setColumnCount(3);
    results->setHeaderLabels({tr("File"), tr("Line"), tr("Text")});
    results->setRootIsDecorated(false);
    results->setUniformRowHeights(true);
    results->setAlternatingRowColors(true);
    results->header()->setStretchLastSection(true);
    results->setColumnWidth(0, 320);
    results->setColumnWidth(1, 50);

    auto *layout = new QGridLayout(this);
    layout->addWidget(query, 0, 0, 1, 3);
    layout->addWidget(findButton, 0, 3);
    layout->addWidget(cancelButton, 0, 4);
    layout->addWidget(caseSensitive, 1, 0);
    layout->addWidget(regularExpression, 1, 1);
    layout->addWidget(wholeWord, 1, 2);
    layout->addWidget(status, 2, 0, 1, 5);
    layout->addWidget(results, 3, 0, 1, 5);
    resize(760, 480);

    connect(findButton, &QPushButton::clicked, this, &FindInFilesDialog::startSearch);
    connect(cancelButton, &QPushButton::clicked, this, &FindInFilesDialog::cancelSearch);
    connect(&search, &TextSearch::hitsFound, this, &FindInFilesDialog::addHits);
    connect(&search, &TextSearch::progress, this, &FindInFilesDialog::showProgress);
    connect(&search, &TextSearch::finished, this, &FindInFilesDialog::showSummary);
    connect(results, &QTreeWidget::itemClicked, this, &FindInFilesDialog::chooseItem);
    connect(results, &QTreeWidget::itemActivated, this, &FindInFilesDialog::chooseItem);
    connect(this, &QDialog::finished, this, &FindInFilesDialog::cancelSearch);
}

void FindInFilesDialog::present()
{
    show();
    raise();
    activateWindow();
    query->setFocus();
    query->selectAll();
}

void FindInFilesDialog::startSearch()
{
    TextSearchQuery wanted{query->text(), caseSensitive->isChecked(), regularExpression->isChecked(),
                           wholeWord->isChecked()};
    results->clear();
    filesSearched = 0;
    shownPaths.clear();
    QStringList paths;
    for (const WorkspaceFiles::File &file : files()) {
        paths.append(file.fullPath);
        shownPaths.insert(file.fullPath, WorkspaceFiles::displayPath(file));
    }
    QString error;
    if (!search.start(paths, wanted, &error)) {
        status->setText(tr("Cannot search: %1").arg(error));
        return;
    }
    status->setText(tr("Searching..."));
    setSearching(true);
}

void FindInFilesDialog::cancelSearch()
{
    if (!search.isRunning())
        return;
    search.cancel();
    setSearching(false);
    status->setText(tr("Cancelled after %n file(s); %1 matching line(s)", nullptr, filesSearched)
                        .arg(results->topLevelItemCount()));
}

void FindInFilesDialog::addHits(const QVector<TextHit> &hits)
{
    QList<QTreeWidgetItem *> items;
    for (const TextHit &hit : hits) {
        auto *item = new QTreeWidgetItem(
            {shownPaths.value(hit.path, hit.path), QString::number(hit.line), hit.lineText.trimmed()});
        item->setToolTip(0, hit.path);
        item->setData(0, PathRole, hit.path);
        item->setData(0, LineRole, hit.line);
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        items.append(item);
    }
    results->addTopLevelItems(items);
}

void FindInFilesDialog::showProgress(int searched, int total)
{
    filesSearched = searched;
    status->setText(tr("Searched %1 of %2 files; %3 matching line(s)")
                        .arg(searched)
                        .arg(total)
                        .arg(results->topLevelItemCount()));
}

void FindInFilesDialog::showSummary(const TextSearchSummary &summary)
{
    setSearching(false);
    QStringList parts{tr("%1 matching line(s) in %2 file(s) searched").arg(summary.hits).arg(summary.filesSearched)};
    if (summary.skippedLarge > 0)
        parts << tr("%1 skipped as larger than %2 MB").arg(summary.skippedLarge).arg(TextSearch::SizeLimit >> 20);
    if (summary.skippedBinary > 0)
        parts << tr("%1 binary skipped").arg(summary.skippedBinary);
    if (summary.unreadable > 0)
        parts << tr("%1 unreadable").arg(summary.unreadable);
    if (summary.truncated)
        parts << tr("stopped at %1 lines").arg(TextSearch::MostHits);
    status->setText(parts.join(QLatin1String("; ")));
}

void FindInFilesDialog::setSearching(bool searching)
{
    findButton->setEnabled(!searching);
    cancelButton->setEnabled(searching);
}

void FindInFilesDialog::chooseItem(const QTreeWidgetItem *item)
{
    if (item)
        emit hitChosen(item->data(0, PathRole).toString(), item->data(0, LineRole).toInt());
}
