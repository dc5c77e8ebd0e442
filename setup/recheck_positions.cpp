#include "setup/recheck_positions.h"

#include "app/boxes.h"
#include "position/grid_display.h"
#include "position/posi_check.h"
#include "position/posi_table.h"

#include <array>
#include <vector>

namespace qdw8 {

namespace {

/// The figures that a file would hold.
auto Figures() {
    std::vector<std::array<double, kComment>> figures;
    for (const PosiRow& row : PosiTable) {
        figures.push_back(row.number);
    }
    return figures;
}

/// In millimetres other devices make other pulses of the same text.
void Show(const std::vector<std::array<double, kComment>>& before) {
    if (Figures() != before) {
        PosiDirtyFlag = kSet;
    }
    ShowTable(); // both units, worked out with the new devices
}

} // namespace

void RecheckPositions() {
    const auto before = Figures();
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
