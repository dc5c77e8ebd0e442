#include "motion/stop_sign.h"

#include "link/stop.h"

#include <optional>

namespace qdw8 {
namespace {

constexpr int kLateTicks = 2; ///< of 100 ms

/// The state of a fresh start.
struct StopSignState {
    bool due = false;
    bool late = false; ///< stays until a stop has been confirmed
    int ticks = 0;
    bool byItself = false;
    std::optional<AxisPulses> reading; ///< the last one behind the answer, or behind the move
};
StopSignState state;

} // namespace

StopSign TheStopSign() {
    if (state.late || (IsSet(AxisMayMove) && LastStop == Stop::Failed)) {
        return StopSign::NotConfirmed;
    }
    return state.due ? StopSign::Stopping : StopSign::None;
}

bool StopIsDue() {
    return state.due;
}

void LetStopBeDue() {
    // A second release must not put off what is to be said of the first.
    state.ticks = state.due ? state.ticks : 0;
    state.due = true;
    state.reading.reset();
    WishStop();
}

void StopSignTick() {
    if (state.due && ++state.ticks >= kLateTicks && IsSet(AxisMayMove)) {
        state.late = true;
    }
}

void SeeMove(bool byItself) {
    state = {};
    state.byItself = byItself;
    LastStop = Stop::None;
    AxisMayMove = kSet;
}

void SeeReading() {
    if (!state.due && !state.byItself) {
        return;
    }
    if (state.reading == JogPresentPos) {
        NothingMoves();
        SetMotionRuns(false);
    } else {
        state.reading = JogPresentPos;
    }
}

void SeeFailure(bool answerDecides) {
    if (!IsSet(AxisMayMove) || (LastStop == Stop::Answered && answerDecides)) {
        NothingMoves();
        return;
    }
    state.due = true;
    state.late = true;
    LastStop = Stop::Failed;
}

void NothingMoves() {
    state = {};
    LastStop = Stop::None;
    AxisMayMove = kClear;
}

void ResetStopSign() {
    state = {};
}

} // namespace qdw8
