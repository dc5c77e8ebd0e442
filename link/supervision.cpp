#include "link/supervision.h"

#include "app/command_states.h"
#include "app/main_panel.h"
#include "link/alarm.h"
#include "link/background.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/line_status.h"
#include "link/port.h"
#include "platform/platform.h"

#include <exception>

namespace qdw8 {

Timer Timer1{"Timer1", 500, false, {}};

namespace {

bool PollIsDue() {
    // While a command has the commands, the poll would run on top of its dialogs, and a wait of the
    // poll would keep the command from ending.
    return !CommandsTaken() && !IsSet(AlarmNotResettableFlag) && IsSet(AlarmFlag);
}

/// A poll that fails leaves the line as the exchange left it: on line with the alarm still
/// standing, off line when nothing answered. The port that it opened is closed in every case.
void Poll() {
    if (PollCtStatus() == 0) {
        AlarmFlag = kClear;
    }
    CloseCtPort();
}

} // namespace

void SupervisionTick() {
    try {
        SetPanel(&MainPanel::imgPortGreen, MSComm1().PortOpen());
        WatchLine();
        if (PollIsDue()) {
            RunInBackground(Poll);
        }
    } catch (const std::exception&) {
        // The tick comes again in half a second; there is nothing to tell the user meanwhile.
        SetPanel(&MainPanel::imgPortGreen, false);
    }
}

void ResetSupervision() {
    DisableTimer(Timer1);
    Timer1 = {"Timer1", 500, false, SupervisionTick};
}

} // namespace qdw8
