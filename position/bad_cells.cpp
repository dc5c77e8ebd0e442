#include "position/bad_cells.h"

#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/posi_table.h"

namespace qdw8 {
namespace {

bool IsBad(int position, int tableColumn) {
    return IsSet(
        PosiCellError[static_cast<std::size_t>(tableColumn)][static_cast<std::size_t>(position)]);
}

} // namespace

void MarkBadCells() {
    FreezeGrid();
    for (int position = PosiFirst; position <= PosiLast; ++position) {
        for (int column = 0; column < kComment; ++column) {
            SetGridBad(position - GridFirst + kGridHeadRows, column + 1, IsBad(position, column));
        }
    }
    ThawGrid();
}

void ClearBadCells() {
    FreezeGrid();
    const int rows = static_cast<int>(flgdData().rows.size());
    for (int row = kGridHeadRows; row < rows; ++row) {
        for (int column = 1; column < kGridCommentColumn; ++column) {
            SetGridBad(row, column, false);
        }
    }
    ThawGrid();
}

} // namespace qdw8
