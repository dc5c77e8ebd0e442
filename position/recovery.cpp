#include "position/recovery.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/string_table.h"
#include "link/background.h"
#include "link/stop.h"
#include "platform/timer.h"
#include "platform/whole_file.h"
#include "position/flex_grid.h"
#include "position/posi_table.h"
#include "position/recovery_file.h"
#include "position/recovery_slot.h"

#include <exception>
#include <string>
#include <unistd.h>
#include <utility>

namespace qdw8 {
namespace {

constexpr std::int32_t kTickMs = 1000;
constexpr int kTicksBetween = 10;
constexpr std::int16_t kNotKept = 3407;

struct State {
    bool running = false;
    std::unique_ptr<RecoverySlot> slot;
    std::string kept;   ///< text of the file, but for its time; empty: there is no file
    int ticksLeft = 0;  ///< until the next look
    std::string untold; ///< why the last try failed, as long as nobody was told
    bool hasTold = false;
};
State state;

void Tick();
Timer timerRecovery{"timerRecovery", kTickMs, false, Tick};

/// What stands half typed in a cell is no change yet, but the user sees it.
bool HasUnsaved() {
    const FlexGrid& grid = flgdData();
    return grid.rows.size() > kGridHeadRows &&
           (IsSet(PosiDirtyFlag) ||
            (grid.edit.open && grid.edit.text != GridText(grid.row, grid.col)));
}

void Drop() {
    if (!state.kept.empty()) {
        ::unlink(state.slot->path().c_str());
        state.kept.clear();
    }
}

void Keep() {
    try {
        KeptTable table = TableOnScreen();
        const std::string text = TextOf(table);
        table.time.clear();
        std::string timeless = TextOf(table);
        if (timeless == state.kept) {
            return;
        }
        if (!state.slot) {
            state.slot = FreeSlot();
        }
        WriteWholeFile(state.slot->path(), text);
        state.kept = std::move(timeless);
    } catch (const std::exception& fault) {
        state.untold = fault.what();
    }
}

/// Once in a run, and not in the middle of something: a box takes the keys.
void TellFailure() {
    if (state.untold.empty() || state.hasTold || CommandsTaken() || ModalIsUp() ||
        CommandWouldWait() || IsSet(AxisMayMove) || flgdData().edit.open) {
        return;
    }
    state.hasTold = true;
    const PollHeld held; // nothing begins on the line under the box
    ShowBox(Lines({ResText(kNotKept), state.untold}));
}

void Tick() {
    state.ticksLeft -= state.ticksLeft > 0 ? 1 : 0;
    if (!HasUnsaved()) {
        Drop();
    } else if (state.ticksLeft == 0 && !IsSet(AxisMayMove)) { // no stop waits for a disk
        state.ticksLeft = kTicksBetween;
        Keep();
    }
    TellFailure();
}

} // namespace

void StartKeeping(std::unique_ptr<RecoverySlot> slot) {
    state = State{};
    state.running = true;
    state.slot = std::move(slot);
    if (state.slot && state.slot->holdsTable()) {
        state.kept = TextOf(KeptTable{});
    }
    EnableTimer(timerRecovery);
}

void KeepUnsavedNow() {
    if (state.running && HasUnsaved()) {
        Keep();
    }
}

void NothingUnsaved() {
    PosiDirtyFlag = kClear;
    Drop();
}

void EndKeeping() {
    Drop();
    ResetRecovery();
}

void ResetRecovery() {
    DisableTimer(timerRecovery);
    state = State{};
}

} // namespace qdw8
