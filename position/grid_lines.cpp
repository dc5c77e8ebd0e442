#include "position/grid_lines.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "position/flex_grid.h"
#include "position/grid_cursor.h"
#include "position/grid_display.h"
#include "position/grid_history.h"
#include "position/posi_check.h"
#include "position/posi_table.h"
#include "position/recovery.h"

#include <algorithm>

namespace qdw8 {
namespace {

int LastGridRow() {
    return static_cast<int>(flgdData().rows.size()) - 1;
}

bool LineIsSelected() {
    const auto [first, last] = SelectedRows();
    return first >= kGridHeadRows && last <= LastGridRow();
}

/// One more position at the end of the range, if there is a number left for it.
void MakeRoom() {
    if (GridLast == kLastPosition) {
        RemoveGridRow(LastGridRow());
        return;
    }
    if (PosiLast == GridLast) {
        ++PosiLast;
    }
    ++GridLast;
}

void SetNoData() {
    GridFirst = GridLast = 0;
    PosiFirst = PosiLast = GridRowCount = 1;
    NothingUnsaved();
    EmptyPosiTable(); // there is nothing left that a read could ask to save
    GridHome();
    EditCMD_Muko();
}

void LastRowIsGone() {
    --GridLast;
    PosiLast = std::min(PosiLast, GridLast);
    PosiFirst = std::min(PosiFirst, PosiLast);
}

} // namespace

void InsertLines(int gridRow, int count) {
    const GridStep step;
    FreezeGrid();
    for (int i = 0; i < count; ++i) {
        MakeRoom();
        InsertGridRow(gridRow);
        FillDefaults(gridRow);
        ColourGridRow(gridRow);
    }
    GridRowCount = static_cast<std::int16_t>(GridLast - GridFirst + 1);
    NumberGridRows();
    PosiDirtyFlag = kSet;
    ThawGrid();
    GoToCell(gridRow, 1);
}

void InsertLine_Click() {
    if (!LineIsSelected()) {
        ShowTexts({388, 389});
        return;
    }
    if (Check_flgdLineNo() != 0) {
        return;
    }
    CancelEdit();
    const auto [first, last] = SelectedRows();
    InsertLines(first, last - first + 1);
}

void DeleteLine_Click() {
    if (LastGridRow() < kGridHeadRows) {
        return;
    }
    if (!LineIsSelected()) {
        ShowTexts({386, 387});
        return;
    }
    if (Check_flgdLineNo() != 0) {
        return;
    }
    CancelEdit();
    const auto [first, last] = SelectedRows();
    const GridStep step;
    FreezeGrid();
    for (int row = first; row <= last; ++row) {
        RemoveGridRow(first);
        LastRowIsGone();
    }
    if (LastGridRow() < kGridHeadRows) {
        SetNoData();
        ThawGrid();
        return;
    }
    if (GridLast == 0) {
        // The one line left of a grid that began at 0. First and last row 0 would mean no data.
        GridFirst = GridLast = PosiFirst = PosiLast = 1;
    }
    GridRowCount = static_cast<std::int16_t>(GridLast - GridFirst + 1);
    NumberGridRows();
    PosiDirtyFlag = kSet;
    ThawGrid();
    GoToCell(std::max(first - 1, kGridHeadRows), 1);
}

} // namespace qdw8
