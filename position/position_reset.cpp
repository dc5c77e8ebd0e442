#include "position/position_reset.h"

#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/grid_cursor.h"
#include "position/grid_history.h"
#include "position/posi_command.h"
#include "position/posi_file.h"
#include "position/posi_reader.h"
#include "position/posi_table.h"
#include "position/posi_verify.h"
#include "position/recovery.h"
#include "position/stroke_check.h"

namespace qdw8 {

void ResetPositions() {
    ResetRecovery();
    ResetPositionCommand();
    ResetPosiTable();
    ResetGrid();
    ResetGridCursor();
    ResetGridHistory();
    ResetCheckResult();
    ResetPosiFile();
    ResetPosiReader();
    ResetStrokeCheck();
    ResetVerify();
}

} // namespace qdw8
