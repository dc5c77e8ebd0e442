#include "link/stop.h"

#include "platform/platform.h"

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct StopState {
    Stop LastStop = Stop::None;
    Flag AxisMayMove = kClear;
    bool motionRuns = false;
};
StopState state;

} // namespace

Stop& LastStop = state.LastStop;
Flag& AxisMayMove = state.AxisMayMove;

bool MotionRuns() {
    return state.motionRuns;
}

void SetMotionRuns(bool runs) {
    state.motionRuns = runs;
    if (MSComm1().SetLastWord) {
        MSComm1().SetLastWord(runs ? "0SP\r\n" : "");
    }
}

void WishStop() {
    LastStop = Stop::Wished;
}

bool StopIsWished() {
    return LastStop == Stop::Wished;
}

void ResetStop() {
    state = {};
}

} // namespace qdw8
