#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <QTimer>
#include <QVector>
#include <array>
#include <functional>

class QLabel;

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

    /// Takes over what the grid holds now.
    void refresh();
    /// The same for the heads alone. True if one has changed.
    bool refreshHeads();

private:
    int shownRows = 0; ///< rows that the view knows of
    QVector<QString> groupHeads;
    QVector<QString> labels;
};

/// The grid on the screen, `flgdData`: shows what the unit holds and hands the selection back.
class GridView : public QTableView {
public:
    /// The user has moved the current cell or the selection: grid row and column of the current
    /// cell, then those of the selection's other end.
    using RowColChange = std::function<void(int, int, int, int)>;

    explicit GridView(RowColChange rowColChange, QWidget* parent = nullptr);

    /// Shows what the grid holds now, unless it is frozen. Cheap when nothing has changed.
    void refresh();
    /// Shows the heads alone.
    void refreshHeads();
    /// The texts that don't change during a run.
    void loadResources();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fitColumns();
    void spreadColumns();
    void showSelection();
    void selectionMoved();
    void handBack();

    GridModel* cells;
    std::array<int, 19> leastWidths{}; ///< of all columns but the comment
    QLabel* corner;
    RowColChange moved;
    bool showing = false; ///< the selection comes from the unit, not from the user
    QTimer moveSoon;
};

} // namespace qdw8
