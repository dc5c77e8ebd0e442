#include "setup/recheck_positions.h"

#include "app/boxes.h"
#include "position/grid_display.h"
#include "position/posi_check.h"

namespace qdw8 {

void RecheckPositions() {
    switch (CheckWholeGrid()) {
    case PosiCheck::Committed: ShowTable(); break; // both units, worked out with the new devices
    case PosiCheck::Refused: ShowTexts({1526}); break;
    case PosiCheck::Faulted: // the table is not what the grid shows: the user's rows stay
    case PosiCheck::NoData: break;
    }
}

} // namespace qdw8
