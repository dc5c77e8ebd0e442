#pragma once

#include "windows/main/command_rows.h"

#include <string>
#include <vector>

/// The one table of the main window's commands: what stands on the controls, where they are, and
/// which routine runs.
namespace qdw8 {

CommandTable Commands();

/// Tells the command states which commands are built.
void RegisterCommands();

/// Runs the command of a control, unless it may not be used now. A cell that is being edited is
/// committed, left alone or given up as the command's row says, at once; a text that is rejected
/// keeps the command from starting. While the command waits for a tick's exchange the grid is
/// locked. Behind the command the grid has the focus again, unless the command left
/// it alone, and the edit commands are back if a cell is still selected.
void RunCommand(Command command);

/// Files were dropped onto the main window: as `mnuFileOpen`, with the file for an answer.
void OpenDroppedPosiFile(const std::vector<std::string>& paths);

/// The edit commands come back with the selection that still stands.
void GiveEditCommandsBack();

} // namespace qdw8
