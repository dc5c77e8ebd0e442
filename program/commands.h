#pragma once

#include "app/command_states.h"

/// Which routine stands behind which command of the main window.
namespace qdw8 {

/// Tells the command states which commands are built.
void RegisterCommands();

/// Runs a command; one that may not be used now does nothing.
void RunCommand(Command command);
/// Runs a command whatever its state: for start-up, which runs while the commands are off. Nothing
/// happens for a command that is not built.
void RunInAnyCase(Command command);

} // namespace qdw8
