#pragma once

#include "position/flex_grid.h"

#include <QAbstractTableModel>
#include <QVector>
#include <vector>

namespace qdw8 {

/// The text cells of `flgdData()` as a table for the screen: body row r is grid row r + 2, body
/// column c is grid column c + 1, and grid column 0 is the head of the row.
class GridModel : public QAbstractTableModel {
public:
    explicit GridModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Takes over the number of rows that the grid holds now. True if it has changed.
    bool refreshRows();
    /// Takes over what the rows `first` to `last` of the body hold now, those on the screen, and
    /// tells the view of the cells that have changed there.
    void refreshCells(int first, int last);
    /// Takes over the heads. True if one has changed.
    bool refreshHeads();

private:
    /// The rows that were on the screen at the last refresh, as they were.
    int knownFirst = 0;
    std::vector<FlexGrid::Row> known;
    int shownRows = 0; ///< rows that the view knows of
    QVector<QString> groupHeads;
    QVector<QString> labels;
};

} // namespace qdw8
