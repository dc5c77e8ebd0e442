#include "motion/move_range_run.h"

#include "motion/move_run.h"
#include "motion/move_state.h"

#include <optional>

namespace qdw8 {
namespace {

constexpr std::int16_t kWrongNumber = 569;

/// Start and end are read anew each time, as the sliders stand by then.
std::optional<int> NextOfRange() {
    const MoveFields& fields = TheMove().fields;
    int& position = TheMove().MoveStep.position;
    if (position > fields.lblEndPosiNo) {
        if (!fields.range.repeat) {
            return std::nullopt;
        }
        position = fields.lblStartPosiNo;
    }
    return position;
}

} // namespace

void RunMoveRange() {
    MoveState& move = TheMove();
    int& position = move.MoveStep.position;
    const bool step = move.fields.range.step; // to the start and no further
    if (step || !IsSet(move.RangePauseFlag)) {
        position = move.fields.lblStartPosiNo; // at once, as in the list
    }
    if (!MakeReadyForMove()) {
        return;
    }
    if (!step && !move.pauses) {
        move.RangePauseFlag = kClear;
    }
    RunWalk({move.fields.range, step, kWrongNumber, NextOfRange, [&position] { ++position; }});
}

} // namespace qdw8
