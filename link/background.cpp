#include "link/background.h"

#include "link/line_state.h"
#include "link/receiver.h"

#include <exception>
#include <utility>

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct BackgroundState {
    int holders = 0;
    bool talks = false;
    bool watched = false; ///< by the user, from its start or since he waits for its end
    std::function<void()> kept;
};
BackgroundState state;

/// A tick talks for the life of the object.
class Talking {
public:
    explicit Talking(bool watched) {
        state.talks = true;
        state.watched = watched;
    }
    ~Talking() { state.talks = state.watched = false; }
    Talking(const Talking&) = delete;
    Talking& operator=(const Talking&) = delete;
};

void RunKept() {
    const std::function<void()> command = std::exchange(state.kept, {});
    if (command) {
        command();
    }
}

bool Run(const std::function<void()>& talk, bool watched, int holders = 0) {
    if (LineTalks() || holders > 0) {
        return false;
    }
    try {
        const Talking talking(watched);
        PutReceiverAtRest();
        talk();
    } catch (const std::exception&) {
        RunKept();
        throw;
    }
    RunKept();
    return true;
}

} // namespace

bool RunInBackground(const std::function<void()>& talk) {
    return !IsSet(OffLineFlag) && Run(talk, false, state.holders);
}

bool RunWatched(const std::function<void()>& talk) {
    return Run(talk, true, state.holders);
}

bool RunPastHold(const std::function<void()>& talk) {
    return Run(talk, true);
}

void WhenLineIsFree(const std::function<void()>& command) {
    if (!state.talks) {
        command();
    } else if (!state.kept) {
        state.kept = command;
    }
}

bool LineTalks() {
    return state.talks || IsSet(CtBusyFlag);
}

bool CommandWouldWait() {
    return state.talks && !state.kept;
}

void AskForLine() {
    state.watched = state.watched || state.talks;
}

bool UserWaitsForLine() {
    return !state.talks || state.watched || state.kept;
}

PollHeld::PollHeld() {
    ++state.holders;
}
PollHeld::~PollHeld() {
    --state.holders;
}

bool PollIsHeld() {
    return state.holders > 0;
}

void ResetBackground() {
    state = {};
}

} // namespace qdw8
