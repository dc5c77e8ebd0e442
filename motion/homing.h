#pragma once

#include <cstdint>
#include <functional>

/// What move test and teaching share on the way of the axes: the wait until they have arrived, and
/// the homing of all axes. `MoveToPosition(position, kind)` itself is a command of the line
/// (link/ct_commands.h).
///
/// Both talk in the foreground while events go on; the caller keeps the ticks of others off the
/// line meanwhile (`LineBatch`, `PollHeld`). But for a line that is
/// lost neither sends a stop: what is under way goes on.
namespace qdw8 {

/// Pause before every question whether the axes have arrived, in milliseconds.
inline constexpr std::int16_t kArrivalPollMs = 100;

/// True: give it up. The end of the program does so by itself. Empty: never.
using GiveUpLook = std::function<bool()>;

enum class MotionEnd : std::uint8_t {
    Arrived, ///< the axes stand still
    Failed,  ///< an exchange failed, or the line was lost between two; the user has been told
    GivenUp  ///< nothing was started, or the axes may still be on their way
};

/// The line went between two exchanges: shows the port box, behind a stop where an axis may move
/// (`AxisMayMove`). Nothing goes on line again but for that stop.
bool TellLostLine();

/// Asks `0RA`, the first time after 100 ms and then every 100 ms, until the axes have arrived.
/// `giveUp` is looked at before each question.
MotionEnd WaitForArrival(const GiveUpLook& giveUp = {});

/// Homes all axes in use: `0MM` with position 000, arrival, then `0RH`, which `HomedFlag` and its
/// lamp follow. `dontStart` is looked at directly before the `0MM`, `giveUp` while the axes move.
/// After `Arrived` `HomedFlag` says whether the controller counts the axes as homed.
MotionEnd HomeAllAxes(const GiveUpLook& dontStart = {}, const GiveUpLook& giveUp = {});

/// The box of a homing that failed, behind that of the exchange: what to look at when the home
/// sensor was not found, else that the communication failed. None after a wait that the user
/// himself gave up.
void TellFailedHoming();

} // namespace qdw8
