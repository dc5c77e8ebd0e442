#include "link/line_status.h"

#include "app/string_table.h"
#include "link/alarm.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/port_words.h"
#include "platform/platform.h"
#include "platform/port_info.h"

namespace qdw8 {
namespace {

/// The port as it was looked at last; the state of a fresh start is that it never was.
struct Watched {
    std::int16_t portNo = 0;
    bool open = false;
    PortInfo info;
};
Watched watched;

Heard HeardHere() {
    return LastHeard.portNo == PortNo ? LastHeard.what : Heard::Nothing;
}

/// An alarm that stands until the controller is switched off.
bool AlarmStays() {
    return IsSet(AlarmFlag) && IsSet(AlarmNotResettableFlag);
}

std::string WhatThePortLacks(const PortInfo& info) {
    switch (info.state) {
    case PortState::NoDevice: return ResText(3347);
    case PortState::NotAllowed:
        return info.group.empty() ? PortSentence(PortNo, info) : ResText(3349, {info.group});
    default: return ResText(3348);
    }
}

std::string WhatWasHeard(Heard heard) {
    switch (heard) {
    case Heard::Answer: return ResText(3340);
    case Heard::Nothing: return ResText(3341);
    case Heard::Silence: return ResText(3343);
    case Heard::Garble: return ResText(3344);
    case Heard::Stranger: return ResText(124);
    case Heard::NoPort: return ResText(3345);
    case Heard::PortLost: break;
    }
    return ResText(3346);
}

} // namespace

LinePanel LineInWords(const PortInfo& info, bool open) {
    using enum LinePanel::Sign;
    const Heard heard = HeardHere();
    const bool failed = heard != Heard::Nothing && heard != Heard::Answer;
    // Somebody who works on files alone has nothing to mend.
    const bool offLine = IsSet(OffLineFlag) && !failed;
    LinePanel line;
    line.port = "COM" + std::to_string(PortNo) + ": " + info.device;
    line.open = open;
    if (!open && info.state != PortState::Ready) {
        line.sign = offLine ? Rest : Bad;
        line.state = WhatThePortLacks(info);
    } else if (offLine && AlarmStays()) {
        line.sign = Bad;
        line.state = ResText(324);
    } else if (offLine) {
        line.state = ResText(3342);
    } else {
        line.sign = failed ? Bad : heard == Heard::Answer ? Good : Rest;
        line.state = WhatWasHeard(heard);
    }
    return line;
}

void WatchLine() {
    const bool open = MSComm1().PortOpen();
    // An open port is what it was when it was opened, whatever becomes of the link meanwhile.
    if (!open || !watched.open || watched.portNo != PortNo) {
        const PortInfo now = LookAtPort(PortNo);
        // What was heard goes for what stood behind the number then.
        if (!open && watched.portNo == PortNo && now.state == PortState::Ready &&
            (watched.info.state != now.state || watched.info.device != now.device)) {
            LastHeard = {};
        }
        watched = {PortNo, open, now};
    }
    watched.open = open;
    SetPanelLine(LineInWords(watched.info, open));
}

std::string PortInWords(const LinePanel& line, bool open) {
    return ResText(open ? 3301 : 3302, {line.port});
}

std::string LineDetails() {
    const LinePanel& line = ThePanel().line;
    std::string text = PortInWords(line, line.open) + "\n" + line.state;
    if (AlarmStays()) {
        text += "\n" + ResText(325);
    }
    const std::string port = PortSentence(PortNo, watched.info);
    if (!line.open && port != line.state) {
        text += "\n" + port;
    }
    if (line.sign != LinePanel::Sign::Good) {
        text += "\n" + ResText(3282) + ":";
        for (const std::string& device : SerialDeviceLines()) {
            text += "\n  " + device;
        }
    }
    return text;
}

void ResetLineStatus() {
    watched = {};
}

} // namespace qdw8
