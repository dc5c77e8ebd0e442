#include "position/bad_cells.h"

#include "position/check_result.h"
#include "position/flex_grid.h"

namespace qdw8 {
namespace {

void Mark(bool (*isBad)(int position, int tableColumn)) {
    FreezeGrid();
    const int rows = static_cast<int>(flgdData().rows.size());
    for (int row = kGridHeadRows; row < rows; ++row) {
        for (int column = 1; column < kGridCommentColumn; ++column) {
            SetGridBad(row, column, isBad(row - kGridHeadRows + GridFirst, column - 1));
        }
    }
    ThawGrid();
}

} // namespace

void MarkBadCells() {
    Mark([](int position, int tableColumn) {
        return IsSet(PosiCellError[static_cast<std::size_t>(tableColumn)]
                                  [static_cast<std::size_t>(position)]);
    });
}

void ClearBadCells() {
    Mark([](int, int) { return false; });
}

} // namespace qdw8
