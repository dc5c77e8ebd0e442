#include "motion/motion_reset.h"

#include "motion/io_check.h"
#include "motion/motion_window.h"
#include "motion/move_test.h"
#include "motion/teach_chart.h"
#include "motion/teaching.h"

namespace qdw8 {

void ResetMotion() {
    ResetIoCheck();
    ResetTeachChart();
    ResetMoveTest();
    ResetTeaching();
    MotionWindowClosed();
}

} // namespace qdw8
