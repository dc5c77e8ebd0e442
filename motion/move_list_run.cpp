#include "motion/move_list_run.h"

#include "app/number_forms.h"
#include "motion/move_run.h"
#include "motion/move_state.h"

#include <optional>

namespace qdw8 {
namespace {

constexpr std::int16_t kWrongNumber = 561;

/// The position of the entry at the index. At the end of the list the index goes back to 1, and
/// with `chkRepeat` the first entry is taken, whatever it holds. A full list ends behind its last
/// entry.
std::optional<int> NextOfList() {
    const MoveFields& fields = TheMove().fields;
    int& index = TheMove().MoveStep.index;
    if (index > static_cast<int>(kMoveCells)) {
        return std::nullopt;
    }
    if (fields.flgdProgram[static_cast<std::size_t>(index - 1)].empty()) {
        index = 1;
        if (!fields.list.repeat) {
            return std::nullopt;
        }
    }
    return ToInt32(NumberFromText(fields.flgdProgram[static_cast<std::size_t>(index - 1)]));
}

} // namespace

void RunMoveList() {
    MoveState& move = TheMove();
    int& index = move.MoveStep.index;
    const bool step = move.fields.list.step; // takes the entry behind the one before
    if (!step && !IsSet(move.MovePauseFlag)) {
        index = 1; // at once: a Pause before the first move keeps this place, not an older one
    }
    if (!MakeReadyForMove()) {
        return;
    }
    if (!step && !move.pauses) {
        move.MovePauseFlag = kClear;
    }
    RunWalk({move.fields.list, step, kWrongNumber, NextOfList, [&index] { ++index; }});
    if (index > static_cast<int>(kMoveCells)) {
        index = 1;
    }
}

} // namespace qdw8
