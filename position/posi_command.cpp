#include "position/posi_command.h"

#include "app/command_states.h"
#include "app/screens.h"
#include "position/flex_grid.h"
#include "position/grid_cursor.h"
#include "position/grid_display.h"
#include "position/posi_table.h"

#include <memory>

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

RangesBefore::RangesBefore()
    : gridFirst(GridFirst), gridLast(GridLast), gridRowCount(GridRowCount), posiFirst(PosiFirst),
      posiLast(PosiLast) {}

void RangesBefore::putBack() const {
    GridFirst = gridFirst;
    GridLast = gridLast;
    GridRowCount = gridRowCount;
    PosiFirst = posiFirst;
    PosiLast = posiLast;
}

WholeGridAfter::~WholeGridAfter() {
    TakeWholeGrid();
}

void ResetPositionCommand() {
    state = State{};
}

} // namespace qdw8
