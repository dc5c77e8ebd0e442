#include "position/grid_history.h"

#include "app/command_states.h"
#include "device/axis_device.h"

#include <algorithm>
#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace qdw8 {
namespace {

/// Rows that all steps together hold: some 70 MB at most, twenty changes of the whole table.
constexpr std::size_t kMostRows = 100'000;

/// What the steps stand on. On anything else they say nothing.
struct Ground {
    Flag mm = DispMmFlag;
    std::array<Flag, kAxes> off = AxisOff;
    std::array<AxisDevice, kAxes> devices = DevSetting;
    std::int16_t first = GridFirst;
    std::size_t rows = flgdData().rows.size();

    bool operator==(const Ground&) const = default;
};

/// All that a step can change.
struct Contents {
    std::vector<FlexGrid::Row> rows = flgdData().rows;
    std::array<PosiRow, kPosiRows> table = PosiTable;
    std::array<PosiUnits, kPosiRows> units = PosiUnitTable;
    GridStand stand;
};

struct State {
    std::optional<Ground> ground; ///< none before the first step
    std::deque<GridChange> steps;
    std::size_t done = 0; ///< steps that stand; those behind them have been taken back
    /// How many stood when the document was last known to be unchanged, and its file then.
    std::optional<std::size_t> saved;
    std::string savedFile;
    int depth = 0; ///< `GridStep` objects that live
    std::unique_ptr<Contents> before;
    bool undoOn = false; ///< as the commands were told
    bool redoOn = false;
};
State state;

bool HasData() {
    return flgdData().rows.size() > kGridHeadRows;
}

bool SameRow(const FlexGrid::Row& one, const FlexGrid::Row& other) {
    return one.bad == other.bad &&
           std::equal(one.text.begin() + 1, one.text.end(), other.text.begin() + 1);
}

/// What lies between the items that both have at their begin and those that both have at their end.
template<typename Items, typename Same>
Exchange<typename Items::value_type> Difference(const Items& before, const Items& after,
                                                Same same) {
    const std::size_t common = std::min(before.size(), after.size());
    std::size_t at = 0;
    while (at < common && same(before[at], after[at])) {
        ++at;
    }
    std::size_t tail = 0;
    while (tail < common - at &&
           same(before[before.size() - 1 - tail], after[after.size() - 1 - tail])) {
        ++tail;
    }
    const auto middle = [at, tail](const Items& all) {
        return std::vector<typename Items::value_type>(
            all.begin() + static_cast<std::ptrdiff_t>(at),
            all.end() - static_cast<std::ptrdiff_t>(tail));
    };
    return {at, middle(before), middle(after)};
}

std::size_t RowsIn(const GridChange& change) {
    return change.rows.before.size() + change.rows.after.size() + change.table.before.size() +
           change.table.after.size();
}

void Forget() {
    state.steps.clear();
    state.done = 0;
    state.saved.reset();
}

/// Looks at what has happened since the last step, before the next thing is done to the steps.
void Settle() {
    if (state.ground != Ground{}) {
        Forget();
        state.ground.emplace();
    }
    if (!HasData()) {
        return; // it has nothing to be saved, whatever the flag says
    }
    if (IsSet(PosiDirtyFlag)) {
        if (state.saved == state.done) {
            state.saved.reset();
        }
    } else {
        state.saved = state.done;
        state.savedFile = PosiFilePath;
    }
}

void DropOldest() {
    std::size_t rows = 0;
    for (const GridChange& step : state.steps) {
        rows += RowsIn(step);
    }
    while (rows > kMostRows && state.steps.size() > 1) {
        rows -= RowsIn(state.steps.front());
        state.steps.pop_front();
        --state.done;
        state.saved =
            state.saved && *state.saved > 0 ? std::optional(*state.saved - 1) : std::nullopt;
    }
}

void Record(Contents& before) {
    constexpr std::equal_to<> kEqual;
    GridChange change{Difference(before.rows, flgdData().rows, SameRow),
                      Difference(before.table, PosiTable, kEqual),
                      Difference(before.units, PosiUnitTable, kEqual),
                      before.stand,
                      {}};
    if (change.rows.before.empty() && change.rows.after.empty()) {
        return;
    }
    state.steps.resize(state.done++);
    state.steps.push_back(std::move(change));
    DropOldest();
    state.ground.emplace();
}

} // namespace

GridStep::GridStep() {
    if (state.depth++ == 0) {
        Settle();
        state.before = std::make_unique<Contents>();
    }
}

GridStep::~GridStep() {
    if (--state.depth == 0) {
        Record(*std::exchange(state.before, nullptr));
        ShowUndoCommands();
    }
}

const GridChange* StepBack() {
    Settle();
    return state.done > 0 ? &state.steps[--state.done] : nullptr;
}

const GridChange* StepAgain() {
    Settle();
    return state.done < state.steps.size() ? &state.steps[state.done++] : nullptr;
}

void StepBrought() {
    state.ground.emplace();
    const bool saved = state.saved == state.done && state.savedFile == PosiFilePath;
    PosiDirtyFlag = FlagOf(HasData() && !saved);
    ShowUndoCommands();
}

void EndGridHistory() {
    Forget();
    ShowUndoCommands();
}

void ControllerTakesRows() {
    if (state.savedFile.empty()) {
        state.saved.reset();
    }
}

void ShowUndoCommands() {
    if (state.ground != Ground{}) {
        Forget(); // at once: it may be what it was before by the time of the next step
    }
    const bool undo = state.done > 0;
    const bool redo = state.done < state.steps.size();
    if (std::exchange(state.undoOn, undo) != undo) {
        SetEnabled(Command::mnuGridUndo, undo);
    }
    if (std::exchange(state.redoOn, redo) != redo) {
        SetEnabled(Command::mnuGridRedo, redo);
    }
}

void ResetGridHistory() {
    state = State{};
}

} // namespace qdw8
