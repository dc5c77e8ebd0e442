#pragma once

/// What the events of the grid do.
namespace qdw8 {

/// The current cell or the selection changed: shows the scale of the axis under the cursor and
/// gives the edit commands back.
void flgdData_RowColChange(int row, int column, int rowSel, int columnSel);

} // namespace qdw8
