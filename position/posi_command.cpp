#include "position/posi_command.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/screens.h"
#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/grid_cursor.h"
#include "position/grid_display.h"
#include "position/posi_table.h"

#include <type_traits>
#include <utility>

namespace qdw8 {
namespace {

/// What the outermost command has taken away.
struct Taken {
    CommandsAway commands;
    GridLock grid;
};

struct State {
    int depth = 0;
    std::unique_ptr<Taken> taken;
};
State state;

} // namespace

PositionCommand::PositionCommand() {
    if (state.depth++ == 0) {
        state.taken = std::make_unique<Taken>();
        CancelEdit();
    }
}

PositionCommand::~PositionCommand() {
    if (--state.depth == 0) {
        ThawGridWholly();
        state.taken.reset();
        if (Screens().flgdDataFocus) {
            Screens().flgdDataFocus();
        }
    }
}

bool AskRange(const std::function<void()>& dialog) {
    const bool asked = ShowModal(dialog);
    return asked && !IsSet(std::exchange(RangeCancelFlag, kClear));
}

WholeGridAfter::~WholeGridAfter() {
    TakeWholeGrid();
}

struct OuterWorkKept::Work {
    RangesBefore ranges;
    std::remove_reference_t<decltype(PosiRowError)> rowError = PosiRowError;
    std::remove_reference_t<decltype(PosiCellError)> cellError = PosiCellError;
    std::int16_t errorCount = PosiErrorCount;
    std::int16_t syogoMode = SyogoMode;
};

OuterWorkKept::OuterWorkKept() : work(state.depth > 0 ? std::make_unique<Work>() : nullptr) {}

OuterWorkKept::~OuterWorkKept() {
    if (work) {
        work->ranges.putBack();
        PosiRowError = work->rowError;
        PosiCellError = work->cellError;
        PosiErrorCount = work->errorCount;
        SyogoMode = work->syogoMode;
    }
}

void ResetPositionCommand() {
    state = State{};
}

} // namespace qdw8
