#pragma once

#include <cstdint>
#include <functional>

/// How a command of the user begins and ends, whatever window it was chosen in.
namespace qdw8 {

/// What every button of the windows beside the main window does. Nothing happens while a command
/// has the commands. Otherwise `routine` runs as soon as the line is free of background traffic,
/// with the commands of all windows away and nothing beginning on the line under its boxes; then
/// `RunToItsEnd` sees to the rest.
void RunWindowCommand(const std::function<void()>& routine);

/// A window that acts on the machine is open and has the line for itself: the windows of
/// parameters, groups and macros do nothing on it meanwhile. The windows are told when it changes.
void ReserveLine(bool reserved);
bool LineReserved();
inline constexpr std::int16_t kLineReserved = 3177; ///< text: which windows are to be closed first

/// Edits that are neither in a file nor in the controller are about to be lost: asks whether to
/// save them first, with nothing beginning on the line under the question. `save` tells whether it
/// did. True: they are saved, or the user gives them up. False: they are to stay.
bool MayLoseEdits(const std::function<bool()>& save);

/// Runs `routine`. Each routine has a handler of its own; what it throws all the same is told (397)
/// and kept from the toolkit. Behind it the program ends if that was confirmed meanwhile, unless
/// `routine` ran inside another command.
void RunToItsEnd(const std::function<void()>& routine);

} // namespace qdw8
