#include "motion/motion_reset.h"

#include "motion/io_check.h"
#include "motion/motion_window.h"

namespace qdw8 {

void ResetMotion() {
    ResetIoCheck();
    MotionWindowClosed();
}

} // namespace qdw8
