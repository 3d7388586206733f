#pragma once

#include "app/ui/LWFileOutlineController.h"
#include "app/ui/WorkspaceOutline.h"

#include <QStringList>

// Reading the sidebar's rows as a person sees them: by their names, in order.
namespace OutlineRows {

inline QModelIndex child(const WorkspaceOutline *outline, const QModelIndex &parent, const QString &label)
{
    const QAbstractItemModel *rows = outline->model();
    for (int row = 0; row < rows->rowCount(parent); ++row) {
        const QModelIndex index = rows->index(row, 0, parent);
        if (index.data().toString() == label)
            return index;
    }
    return {};
}

// The row at a path of names from the top ("PROJ/sub/a.txt").
inline QModelIndex at(const WorkspaceOutline *outline, const QString &path)
{
    QModelIndex index;
    for (const QString &label : path.split(QLatin1Char('/'))) {
        index = child(outline, index, label);
        if (!index.isValid())
            return {};
    }
    return index;
}

inline QStringList labels(const WorkspaceOutline *outline, const QModelIndex &parent)
{
    QStringList result;
    const QAbstractItemModel *rows = outline->model();
    for (int row = 0; parent.isValid() && row < rows->rowCount(parent); ++row)
        result.append(rows->index(row, 0, parent).data().toString());
    return result;
}

}
