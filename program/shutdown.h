#pragma once

/// The way out of the program.
namespace qdw8 {

/// Asks before the main window goes. False: it stays.
bool frmMain_QueryUnload();

/// Stores what outlives the run and ends the process at once.
void frmMain_Unload();

} // namespace qdw8
