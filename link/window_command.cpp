#include "link/window_command.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "link/background.h"
#include "link/end_of_run.h"

#include <exception>

namespace qdw8 {

void RunWindowCommand(const std::function<void()>& routine) {
    if (CommandsTaken()) {
        return;
    }
    WhenLineIsFree([routine] {
        if (CommandsTaken()) {
            return; // another command has begun since the user chose this one
        }
        RunToItsEnd([&routine] {
            const CommandsAway away;
            const PollHeld held;
            routine();
        });
    });
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
