#pragma once

namespace qdw8 {

/// Checks the whole grid against the devices in force, which have just changed and are shown.
/// Clean: the table takes the grid, the unit that isn't shown worked out anew from the one that is,
/// and the grid is shown again; the document is marked changed if that made another figure of any
/// that a file would hold. Errors: they are shown, nothing is converted, and a box asks the
/// user to correct the rows. Without data nothing happens.
void RecheckPositions();

} // namespace qdw8
