#include "link/port.h"

#include "app/boxes.h"
#include "app/settings.h"
#include "app/string_table.h"
#include "app/waits.h"
#include "link/line_state.h"
#include "platform/platform.h"

#include <exception>

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct PortState {
    std::int16_t PortNo = 1;
    Flag PortOccupyFlag = kClear;
};
PortState state;

} // namespace

std::int16_t& PortNo = state.PortNo;
Flag& PortOccupyFlag = state.PortOccupyFlag;

std::int16_t OpenCtPort() {
    try {
        if (PortNo < 1 || PortNo > 9) {
            PortNo = StoredPortNo();
        }
        SerialControl& port = MSComm1();
        if (!port.PortOpen()) {
            if (PortNo < 1 || PortNo > 9) {
                return 1;
            }
            port.SetCommPort(PortNo);
            port.SetPortOpen(true);
            // The control takes line settings only while the port is open.
            port.SetSettings("9600,N,8,1");
            port.SetCDTimeout(3000);
            port.SetHandshaking(0);
            // What the driver still holds came before anybody asked.
            port.DropInput();
        }
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

std::int16_t OpenCtPortWithTries() {
    if (SixTries([] { return OpenCtPort() == 0; })) {
        return 0;
    }
    LastHeard = {Heard::NoPort, PortNo};
    return 1;
}

void ShowPortBox() {
    ShowBox(Lines({ResText(109), "", ResText(110)}));
}

std::int16_t OpenCtPortForBatch() {
    if (OpenCtPortWithTries() == 0) {
        return 0;
    }
    ShowPortBox();
    SetOfflineState();
    return 1;
}

void CloseCtPort() {
    if (!IsSet(PortOccupyFlag)) {
        CloseCtPortForce();
    }
}

void CloseCtPortForce() {
    if (MSComm1().PortOpen()) {
        MSComm1().SetPortOpen(false);
    }
}

void ResetPort() {
    state = {};
}

} // namespace qdw8
