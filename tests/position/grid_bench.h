#pragma once

#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_table.h"
#include "support/bench.h"

namespace qdw8::test {

/// A bench with a position grid.
struct GridBench : LineBench {
    /// Puts rows of defaults into the table and the grid.
    static void showRows(std::int16_t first, std::int16_t last) {
        ClearPosiTable();
        GridFirst = PosiFirst = first;
        GridLast = PosiLast = last;
        GridRowCount = static_cast<std::int16_t>(last - first + 1);
        QdDataHyoji_3();
    }
    /// Sets and gives the text of a cell by position number and table column.
    static void type(int position, int column, const std::string& text) {
        SetGridText(position - GridFirst + kGridHeadRows, column + 1, text);
    }
    static std::string cell(int position, int column) {
        return GridText(position - GridFirst + kGridHeadRows, column + 1);
    }
};

} // namespace qdw8::test
