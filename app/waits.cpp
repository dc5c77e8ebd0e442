#include "app/waits.h"

#include "app/Module1.h"
#include "platform/platform.h"
#include "platform/timer.h"

namespace qdw8 {

void MsecTimer(std::int16_t ms) {
    // A timer for each wait: one that begins inside another must neither end nor strand it.
    bool done = false;
    Timer mmsecTimer{"mmsecTimer", ms, false, {}};
    mmsecTimer.routine = [&] {
        done = true;
        DisableTimer(mmsecTimer);
    };
    EnableTimer(mmsecTimer);
    while (!done) {
        PumpEvents();
    }
}

bool SixTries(const std::function<bool()>& attempt) {
    for (int failed = 0; !attempt(); MsecTimer(kRetryPauseMs)) {
        if (++failed > kRetries) {
            return false;
        }
    }
    return true;
}

} // namespace qdw8
