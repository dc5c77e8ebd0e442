#pragma once

#include "app/command_states.h"

/// Which routine stands behind which command of the main window.
namespace qdw8 {

/// Tells the command states which commands are built.
void RegisterCommands();

/// Runs a command; one that may not be used now does nothing.
void RunCommand(Command command);

} // namespace qdw8
