#include "setup/recheck_positions.h"

#include "app/boxes.h"
#include "position/grid_display.h"
#include "position/posi_check.h"
#include "position/posi_table.h"

namespace qdw8 {

void RecheckPositions() {
    // A command on a part of the table may have left its range behind; all rows hang on the
    // devices.
    TakeWholeGrid();
    switch (PosiDataCheck3()) {
    case PosiCheck::Committed: ShowTable(); break; // both units, worked out with the new devices
    case PosiCheck::Refused: ShowTexts({1526}); break;
    case PosiCheck::Faulted: // the table is not what the grid shows: the user's rows stay
    case PosiCheck::NoData: break;
    }
}

} // namespace qdw8
