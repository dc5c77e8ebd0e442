#pragma once

/// The way out of the program.
namespace qdw8 {

/// Asks before the main window goes. False: it stays. While a command runs the end is only noted
/// in `ProgramEndFlag` when it has been confirmed: a transfer ends at its next row and leaves the
/// controller in order, and `EndIfConfirmed` follows.
bool frmMain_QueryUnload();

/// At the end of every command and of start-up: ends the program if that was confirmed meanwhile,
/// unless the command ran inside another one.
void EndIfConfirmed();

/// Stores what outlives the run and ends the process at once.
void frmMain_Unload();

} // namespace qdw8
