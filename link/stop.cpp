#include "link/stop.h"

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct StopState {
    Stop LastStop = Stop::None;
    Flag AxisMayMove = kClear;
};
StopState state;

} // namespace

Stop& LastStop = state.LastStop;
Flag& AxisMayMove = state.AxisMayMove;

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
