#include "platform/timer.h"

#include "platform/platform.h"

namespace qdw8 {

void SetInterval(Timer& timer, std::int32_t milliseconds) {
    timer.interval = milliseconds;
    ThePlatform().TimerChanged(timer);
}

void EnableTimer(Timer& timer) {
    timer.enabled = true;
    ThePlatform().TimerChanged(timer);
}

void DisableTimer(Timer& timer) {
    if (!timer.enabled) {
        return;
    }
    timer.enabled = false;
    ThePlatform().TimerChanged(timer);
}

} // namespace qdw8
