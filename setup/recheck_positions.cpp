#include "setup/recheck_positions.h"

#include "app/boxes.h"
#include "position/grid_display.h"
#include "position/posi_check.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <array>
#include <vector>

namespace qdw8 {

namespace {

using Figures = std::array<double, kComment>;

/// The figures of the grid's rows that a file would hold. The pulses of rows that came from a file
/// or the controller reach the table only with a check.
std::vector<Figures> FiguresOfGrid() {
    std::vector<Figures> rows;
    for (int position = GridFirst; position <= GridLast; ++position) {
        const auto row = static_cast<std::size_t>(position);
        Figures figures = PosiTable[row].number;
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            figures[axis * kAxisColumns + kPosi] = PosiUnitTable[row].pulse[axis];
        }
        rows.push_back(figures);
    }
    return rows;
}

/// In millimetres other devices make other pulses of the same text.
void Show(const std::vector<Figures>& before) {
    if (FiguresOfGrid() != before) {
        PosiDirtyFlag = kSet;
    }
    ShowTable(); // both units, worked out with the new devices
}

} // namespace

void RecheckPositions() {
    const std::vector<Figures> before = FiguresOfGrid();
    // A command on a part of the table may have left its range behind; all rows hang on the
    // devices.
    TakeWholeGrid();
    switch (PosiDataCheck3()) {
    case PosiCheck::Committed: Show(before); break;
    case PosiCheck::Refused: ShowTexts({1526}); break;
    case PosiCheck::Faulted: // the table is not what the grid shows: the user's rows stay
    case PosiCheck::NoData: break;
    }
}

} // namespace qdw8
