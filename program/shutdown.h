#pragma once

/// The way out of the program.
namespace qdw8 {

/// Asks before the main window goes. False: it stays. While a command runs the end is only noted
/// in `ProgramEndFlag` when it has been confirmed: a transfer ends at its next row and leaves the
/// controller in order, and `EndIfConfirmed` (link/end_of_run.h) follows.
bool frmMain_QueryUnload();

} // namespace qdw8
