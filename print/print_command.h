#pragma once

namespace qdw8 {

/// Asks what to print by `frmPrintSelect`, and prints positions, then parameters. Positions of the
/// screen are checked and taken into the table first; nothing else changes but that.
void PrintPosiCommand();

} // namespace qdw8
