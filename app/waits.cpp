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
    // Counted here: what runs out of the pause has tries of its own.
    std::int16_t failed = 0;
    while (true) {
        RetryCount = failed;
        if (attempt()) {
            return true;
        }
        RetryCount = ++failed;
        if (failed > kRetries) {
            return false;
        }
        MsecTimer(kRetryPauseMs);
    }
}

} // namespace qdw8
