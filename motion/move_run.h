#pragma once

#include "motion/move_state.h"

#include <functional>
#include <optional>

/// What the runs of the move test have in common. A routine that gives false has seen to what the
/// user is to hear, and the run is over; nothing more goes out then.
namespace qdw8 {

/// No further motion is to be started: a Stop, a Pause, a closed window, the end of the program.
bool MoveMustEnd();

/// Notes that a failure ends the run, with or without axes on their way. False.
bool FailMove();

/// `0RA`: the axes stand still.
bool StandsStillForMove();
/// What stands before the first move of a run: the axes stand still, and are homed, if need be by a
/// homing of all axes.
bool MakeReadyForMove();

/// Homes all axes and shows the arrival at 0. `onFailure` runs where a frame of the homing failed.
bool HomeForMove(const std::function<void()>& onFailure = {});

/// One motion: looks whether it may still begin, sends it by `start` (0 good), and waits until the
/// axes have arrived.
bool RunMotion(MovePhase phase, int target, const std::function<std::int16_t()>& start);

/// How list and range differ.
struct MoveWalk {
    const MoveChoices& choices;
    bool step;                                ///< it was begun as a step, and stays one
    std::int16_t wrongNumber;                 ///< text for a position that is none
    std::function<std::optional<int>()> next; ///< the position to go to; nothing: that was the last
    std::function<void()> advance;            ///< it has been reached
};
/// Runs through positions until there is no next one, or the run is to end.
void RunWalk(const MoveWalk& walk);

} // namespace qdw8
