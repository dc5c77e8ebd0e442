#pragma once

/// The end of the run, behind the questions of the main window.
namespace qdw8 {

/// At the end of every command and of start-up: ends the program if that was confirmed meanwhile,
/// unless the command ran inside another one.
void EndIfConfirmed();

/// Stores what outlives the run and ends the process at once.
void frmMain_Unload();

} // namespace qdw8
