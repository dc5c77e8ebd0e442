#include "link/background.h"

#include "link/line_state.h"
#include "link/receiver.h"
#include "platform/timer.h"

#include <utility>

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct BackgroundState {
    int holders = 0;
    bool talks = false;
    std::function<void()> kept;
};
BackgroundState state;

/// Starts the command that was kept. Out of a timer of its own: the tick's timer must run on while
/// the command does.
Timer timerKept{"timerKept", 1, false, {}};

/// A tick talks for the life of the object.
class Talking {
public:
    Talking() { state.talks = true; }
    ~Talking() {
        state.talks = false;
        if (state.kept) {
            EnableTimer(timerKept);
        }
    }
    Talking(const Talking&) = delete;
    Talking& operator=(const Talking&) = delete;
};

bool LineIsTaken() {
    return state.talks || state.kept || state.holders > 0 || IsSet(CtBusyFlag) ||
           IsSet(OffLineFlag);
}

void RunKept() {
    DisableTimer(timerKept);
    const std::function<void()> command = std::exchange(state.kept, {});
    command();
}

} // namespace

bool RunInBackground(const std::function<void()>& talk) {
    if (LineIsTaken()) {
        return false;
    }
    const Talking talking;
    PutReceiverAtRest();
    talk();
    return true;
}

void WhenLineIsFree(const std::function<void()>& command) {
    if (state.kept) {
        return;
    }
    if (state.talks) {
        state.kept = command;
    } else {
        command();
    }
}

bool UserWaitsForLine() {
    return !state.talks || state.kept;
}

PollHeld::PollHeld() {
    ++state.holders;
}
PollHeld::~PollHeld() {
    --state.holders;
}

void ResetBackground() {
    state = {};
    DisableTimer(timerKept);
    timerKept = {"timerKept", 1, false, RunKept};
}

} // namespace qdw8
