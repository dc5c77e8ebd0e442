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
    if (!MakeReadyForMove()) {
        return;
    }
    MoveState& move = TheMove();
    int& position = move.MoveStep.position;
    if (move.fields.range.step) { // a step is to the start and no further
        position = move.fields.lblStartPosiNo;
    } else {
        position = IsSet(move.RangePauseFlag) ? position : move.fields.lblStartPosiNo;
        move.RangePauseFlag = kClear;
    }
    RunWalk({move.fields.range, kWrongNumber, NextOfRange, [&position] { ++position; }});
}

} // namespace qdw8
