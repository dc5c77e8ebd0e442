#include "program/told_to_end.h"

#include "app/Module1.h"
#include "app/command_states.h"
#include "link/background.h"
#include "link/ct_commands.h"
#include "link/end_of_run.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/stop.h"
#include "platform/last_word.h"
#include "platform/platform.h"
#include "platform/timer.h"
#include "position/recovery.h"

#include <cstdlib>
#include <unistd.h>

namespace qdw8 {
namespace {

constexpr int kTicks = 100;     ///< of 50 ms
constexpr unsigned kKeepS = 10; ///< a disk that hangs ends the process

int ticks = 0;
Timer timerToldToEnd{"timerToldToEnd", 50, false, {}};

/// A command, or what it shows, is still on its way out.
bool SomethingRuns() {
    return CommandsTaken() || LineTalks();
}

void CancelWhatIsUp() {
    if (ThePlatform().CancelModal) {
        ThePlatform().CancelModal();
    }
}

/// A disk holds up no stop: what still moves has its last word now.
void StopThenKeep() {
    CloseCtPortForce();
    if (MotionRuns()) {
        SayLastWordNow();
    }
    KeepUnsavedNow();
}

void Tick() {
    if (++ticks < kTicks && SomethingRuns()) {
        CancelWhatIsUp();
        return;
    }
    DisableTimer(timerToldToEnd);
    StopThenKeep();
    frmMain_Unload();
}

/// The toolkit ends the process by itself where its display is gone. What is left of it must not
/// run into windows that are still there.
void BeEndedByToolkit(int status, void* /*nothing*/) {
    ::alarm(kKeepS);
    StopThenKeep();
    std::_Exit(status);
}

void BeToldToEnd() {
    if (timerToldToEnd.enabled) {
        return;
    }
    ProgramEndFlag = kSet;
    EnableTimer(timerToldToEnd);
    CancelWhatIsUp();
    if (MotionRuns()) {
        StopMotion();
    }
}

} // namespace

void ObeyToldToEnd() {
    ticks = 0;
    DisableTimer(timerToldToEnd);
    timerToldToEnd.routine = Tick;
    ThePlatform().OnToldToEnd = BeToldToEnd;
}

void KeepUnsavedAtExit() {
    ::on_exit(BeEndedByToolkit, nullptr);
}

} // namespace qdw8
