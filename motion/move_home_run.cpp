#include "motion/move_home_run.h"

#include "app/waits.h"
#include "link/ct_commands.h"
#include "link/port.h"
#include "motion/homing.h"
#include "motion/move_run.h"

namespace qdw8 {

void RunMoveHome() {
    // A port that stays shut is told by the first exchange.
    for (int failed = 0; failed < kRetries && OpenCtPort() != 0; ++failed) {
        MsecTimer(kRetryPauseMs);
    }
    if (CheckCtStatus() != 0) {
        FailMove();
    } else if (StandsStillForMove()) {
        HomeForMove([] {
            CloseCtPort();
            TellFailedHoming();
        });
    }
}

} // namespace qdw8
