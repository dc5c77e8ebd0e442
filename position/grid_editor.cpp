#include "position/grid_editor.h"

#include "app/command_states.h"
#include "device/Module2Calc.h"
#include "position/flex_grid.h"
#include "position/posi_table.h"

namespace qdw8 {

void flgdData_RowColChange(int row, int column, int rowSel, int columnSel) {
    SelectCells(row, column, rowSel, columnSel);
    if (column >= 1 && column <= kItpl) {
        ShowUnitScaleOfAxis((column - 1) / kAxisColumns);
    }
    if (row >= kGridHeadRows) {
        EditCMD_Yuko();
    }
}

} // namespace qdw8
