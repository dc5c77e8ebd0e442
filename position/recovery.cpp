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
#include <utility>

namespace qdw8 {
namespace {

constexpr std::int32_t kTickMs = 1000;
constexpr int kTicksBetween = 10;
constexpr std::int16_t kNotKept = 3407;
constexpr std::int16_t kNotRemoved = 3410;

/// A failure that is told once in a run.
struct Trouble {
    std::int16_t text = 0;
    std::string reason; ///< empty: there is none, or it is over
    bool told = false;
};

struct State {
    bool running = false;
    std::unique_ptr<RecoverySlot> slot;
    std::string kept; ///< text of the file, but for its time; empty: there is no file
    std::unique_ptr<RecoverySlot> before;
    int ticksLeft = 0; ///< until the next look
    Trouble keeping{kNotKept, {}, false};
    Trouble removing{kNotRemoved, {}, false};
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

/// What can't be removed is tried again with the next tick.
void Drop() {
    try {
        if (!state.kept.empty()) {
            RemoveFile(state.slot->path());
            state.kept.clear();
        }
        if (state.before) {
            RemoveFile(state.before->path());
            state.before.reset();
        }
        state.removing.reason.clear();
    } catch (const std::exception& fault) {
        state.removing.reason = fault.what();
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
        state.keeping.reason.clear();
    } catch (const std::exception& fault) {
        state.keeping.reason = fault.what();
    }
}

void Tell(Trouble& trouble) {
    if (!trouble.reason.empty() && !trouble.told) {
        trouble.told = true;
        const PollHeld held; // nothing begins on the line under the box
        ShowBox(Lines({ResText(trouble.text), trouble.reason}));
    }
}

/// Not in the middle of something: a box takes the keys.
bool MayTell() {
    return !CommandsTaken() && !ModalIsUp() && !CommandWouldWait() && !flgdData().edit.open;
}

void Tick() {
    state.ticksLeft -= state.ticksLeft > 0 ? 1 : 0;
    if (IsSet(AxisMayMove)) {
        return; // no stop waits for a disk
    }
    if (!HasUnsaved()) {
        Drop();
    } else if (state.ticksLeft == 0) {
        state.ticksLeft = kTicksBetween;
        Keep();
    }
    if (MayTell()) {
        Tell(state.keeping);
        Tell(state.removing);
    }
}

} // namespace

void StartKeeping(std::unique_ptr<RecoverySlot> slot, std::unique_ptr<RecoverySlot> before) {
    state = State{};
    state.running = true;
    state.slot = std::move(slot);
    state.before = std::move(before);
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
    DisableTimer(timerRecovery);
    Drop();
    Tell(state.removing);
    ResetRecovery();
}

void ResetRecovery() {
    DisableTimer(timerRecovery);
    state = State{};
}

} // namespace qdw8
