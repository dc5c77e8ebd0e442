#include "link/supervision.h"

#include "app/command_states.h"
#include "app/main_panel.h"
#include "link/Module3Tusin.h"
#include "link/ct_commands.h"
#include "platform/platform.h"

#include <exception>

namespace qdw8 {
namespace {

int pollHolders = 0;

bool PollIsDue() {
    // While a command has the commands, the poll would run on top of its dialogs, and a wait of the
    // poll would keep the command from ending.
    return pollHolders == 0 && !CommandsTaken() && !IsSet(OffLineFlag) &&
           !IsSet(AlarmNotResettableFlag) && IsSet(AlarmFlag) && !IsSet(CtBusyFlag);
}

/// A poll that fails leaves the line as the exchange left it: on line with the alarm still
/// standing, off line when nothing answered.
void Poll() {
    if (PollCtStatus() == 0) {
        AlarmFlag = kClear;
        CloseCtPort();
    }
}

} // namespace

void SupervisionTick() {
    try {
        SetPanel(&MainPanel::imgPortGreen, MSComm1().PortOpen());
        if (PollIsDue()) {
            Poll();
        }
    } catch (const std::exception&) {
        // The tick comes again in half a second; there is nothing to tell the user meanwhile.
        SetPanel(&MainPanel::imgPortGreen, false);
    }
}

PollHeld::PollHeld() {
    ++pollHolders;
}
PollHeld::~PollHeld() {
    --pollHolders;
}

void ResetSupervision() {
    pollHolders = 0;
}

} // namespace qdw8
