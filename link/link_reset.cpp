#include "link/link_reset.h"

#include "link/alarm.h"
#include "link/background.h"
#include "link/line_state.h"
#include "link/line_status.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/stop.h"
#include "link/supervision.h"

namespace qdw8 {

void ResetModule3Tusin() {
    ResetLineState();
    ResetLineStatus();
    ResetPort();
    ResetAlarmState();
    ResetReceiver();
    ResetStop();
    ResetBackground();
    ResetSupervision();
}

} // namespace qdw8
