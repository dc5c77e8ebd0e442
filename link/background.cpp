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
    std::function<void()> kept;
};
BackgroundState state;

/// A tick talks for the life of the object.
class Talking {
public:
    Talking() { state.talks = true; }
    ~Talking() { state.talks = false; }
    Talking(const Talking&) = delete;
    Talking& operator=(const Talking&) = delete;
};

bool LineIsTaken() {
    return state.talks || state.holders > 0 || IsSet(CtBusyFlag) || IsSet(OffLineFlag);
}

void RunKept() {
    const std::function<void()> command = std::exchange(state.kept, {});
    if (command) {
        command();
    }
}

} // namespace

bool RunInBackground(const std::function<void()>& talk) {
    if (LineIsTaken()) {
        return false;
    }
    try {
        const Talking talking;
        PutReceiverAtRest();
        talk();
    } catch (const std::exception&) {
        RunKept();
        throw;
    }
    RunKept();
    return true;
}

void WhenLineIsFree(const std::function<void()>& command) {
    if (!state.talks) {
        command();
    } else if (!state.kept) {
        state.kept = command;
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
}

} // namespace qdw8
