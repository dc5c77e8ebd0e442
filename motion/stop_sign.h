#pragma once

#include "motion/jog_position.h"

#include <cstdint>

/// The truth about a stop: an axis that was let go counts as moving until `0SP` has been answered
/// and two readings of the position agree.
namespace qdw8 {

enum class StopSign : std::uint8_t {
    None,        ///< none was due, or the axes have stopped
    Stopping,    ///< due, and not yet confirmed
    NotConfirmed ///< not confirmed in time, or failed: only the machine's own stop is certain
};
StopSign TheStopSign();

/// A stop is due, and not yet confirmed.
bool StopIsDue();
/// From now on, or already since it was due; wishes it (link/stop.h).
void LetStopBeDue();
/// 100 ms have passed: 200 ms behind a stop that is due it counts as not confirmed, where an axis
/// may move at all.
void StopSignTick();

/// An axis is about to be moved: until a stop is confirmed, or, with `byItself`, to the end of a
/// step.
void SeeMove(bool byItself);
/// A reading came, behind the answer to the stop where one is due. Two in turn that are equal
/// confirm that stop, and end a step that ran by itself: no axis moves any more.
void SeeReading();
/// An exchange has failed, and no more readings come. Where an axis may move, its stop is not
/// confirmed by anything any more, whether one was due or the exchange itself has sent it; with
/// `answerDecides`, for a failed `0JR`, `0MV` or homing, the answer to the stop is enough.
void SeeFailure(bool answerDecides);

/// The axes stand still: no stop is due, and none is wished any more.
void NothingMoves();

void ResetStopSign();

} // namespace qdw8
