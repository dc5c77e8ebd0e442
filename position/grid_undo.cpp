#include "position/grid_undo.h"

#include "app/command_states.h"
#include "position/cell_edit.h"
#include "position/flex_grid.h"
#include "position/grid_cursor.h"
#include "position/grid_display.h"
#include "position/grid_history.h"
#include "position/posi_table.h"

#include <algorithm>
#include <vector>

namespace qdw8 {
namespace {

/// A row that holds the cells of `from` gets those of `to` where they differ: what a check has
/// written into the others since is left alone.
void BringRow(int gridRow, const FlexGrid::Row& from, const FlexGrid::Row& to) {
    for (int column = 1; column < kGridColumns; ++column) {
        const auto cell = static_cast<std::size_t>(column);
        if (from.text[cell] != to.text[cell] || from.bad[cell] != to.bad[cell]) {
            SetGridText(gridRow, column, to.text[cell]);
            SetGridBad(gridRow, column, to.bad[cell] || !MayBeTyped(column, to.text[cell]));
            RestoreBlockColour(gridRow, column);
        }
    }
}

/// Lines taken out and put in where their number differs.
void BringRows(int first, const std::vector<FlexGrid::Row>& from,
               const std::vector<FlexGrid::Row>& to) {
    const bool others = from.size() != to.size();
    for (std::size_t i = 0; others && i < from.size(); ++i) {
        RemoveGridRow(first);
    }
    static const FlexGrid::Row kEmpty;
    for (std::size_t i = 0; i < to.size(); ++i) {
        const int row = first + static_cast<int>(i);
        if (others) {
            InsertGridRow(row);
            ColourGridRow(row);
        }
        BringRow(row, others ? kEmpty : from[i], to[i]);
    }
}

template<typename Table, typename Item>
void BringBack(Table& table, std::size_t at, const std::vector<Item>& items) {
    std::copy(items.begin(), items.end(), table.begin() + static_cast<std::ptrdiff_t>(at));
}

template<typename Item>
const std::vector<Item>& SideOf(const Exchange<Item>& exchange, bool before) {
    return before ? exchange.before : exchange.after;
}

void Bring(const GridChange* (*nextStep)(), bool before) {
    if (flgdData().locked > 0) {
        return;
    }
    CancelEdit();
    const GridChange* step = nextStep();
    if (step == nullptr) {
        ShowUndoCommands();
        return;
    }
    const GridStand& stand = before ? step->before : step->after;
    FreezeGrid();
    BringRows(static_cast<int>(step->rows.at), SideOf(step->rows, !before),
              SideOf(step->rows, before));
    BringBack(PosiTable, step->table.at, SideOf(step->table, before));
    BringBack(PosiUnitTable, step->units.at, SideOf(step->units, before));
    if (step->rows.before.size() != step->rows.after.size()) {
        stand.ranges.putBack();
        NumberGridRows();
    }
    StepBrought();
    ThawGrid();
    if (stand.row < kGridHeadRows) {
        GridHome();
        EditCMD_Muko();
        return;
    }
    flgdData_RowColChange(stand.row, stand.col, stand.rowSel, stand.colSel);
    ShowCurrentCell();
}

} // namespace

void mnuGridUndo_Click() {
    Bring(StepBack, true);
}

void mnuGridRedo_Click() {
    Bring(StepAgain, false);
}

} // namespace qdw8
