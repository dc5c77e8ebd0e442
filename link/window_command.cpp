#include "link/window_command.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "link/background.h"
#include "link/end_of_run.h"

#include <exception>

namespace qdw8 {
namespace {

/// The state of a fresh start.
bool lineReserved = false;

} // namespace

void ReserveLine(bool reserved) {
    if (lineReserved != reserved) {
        lineReserved = reserved;
        if (Screens().frmMainCommands) {
            Screens().frmMainCommands();
        }
    }
}

bool LineReserved() {
    return lineReserved;
}

void RunWindowCommand(const std::function<void()>& routine) {
    WhenLineIsFree([routine] {
        if (CommandsTaken()) {
            return;
        }
        RunToItsEnd([&routine] {
            const CommandsAway away;
            const PollHeld held;
            routine();
        });
    });
}

bool MayLoseEdits(const std::function<bool()>& save) {
    const CommandsAway away;
    const PollHeld held;
    switch (AskBox(ResText(394), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes: return save();
    case BoxAnswer::No: return true;
    default: return false;
    }
}

void RunToItsEnd(const std::function<void()>& routine) {
    try {
        routine();
    } catch (const std::exception&) {
        ShowTexts({397});
    }
    EndIfConfirmed();
}

} // namespace qdw8
