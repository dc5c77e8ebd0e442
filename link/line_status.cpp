#include "link/line_status.h"

#include "app/string_table.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/port_words.h"
#include "link/receiver.h"
#include "platform/platform.h"
#include "platform/port_info.h"

namespace qdw8 {
namespace {

/// The port as it was looked at last; the state of a fresh start is that it never was.
struct Watched {
    std::int16_t portNo = -1;
    bool open = false;
    int ticks = 0; ///< since then
    PortInfo info;
};
Watched watched;

/// 3 s. A look goes through the user's folder, which may lie on a slow disk or on another machine.
constexpr int kTicksBetweenLooks = 6;

Heard HeardHere() {
    if (LastHeard.portNo != PortNo) {
        return Heard::Nothing;
    }
    const bool stranger = CtAxisCount != 0 && CtAxisCount != kAxes;
    return LastHeard.what == Heard::Answer && stranger ? Heard::Stranger : LastHeard.what;
}

bool HasFailed(Heard heard) {
    return heard != Heard::Nothing && heard != Heard::Answer;
}

/// An open port is what it was when it was opened, whatever becomes of the link meanwhile; and
/// between the commands of a line that works nothing has to be found out.
bool LookIsDue(bool open) {
    if (watched.portNo != PortNo || watched.open != open) {
        return true;
    }
    const bool mayChange =
        IsSet(OffLineFlag) || watched.info.state != PortState::Ready || HasFailed(HeardHere());
    return !open && ++watched.ticks >= kTicksBetweenLooks && mayChange;
}

std::string WhatThePortLacks(const PortInfo& info) {
    switch (info.state) {
    case PortState::NoDevice: return ResText(3347);
    case PortState::NotAllowed:
        return info.group.empty() ? PortSentence(PortNo, info) : ResText(3349, {info.group});
    case PortState::LinkBroken: return ResText(3348);
    default: return PortSentence(PortNo, info);
    }
}

std::string WhatWasHeard(Heard heard) {
    switch (heard) {
    case Heard::Answer: return ResText(3340);
    case Heard::Nothing: return ResText(IsSet(ReplyAwaitedFlag) ? 2401 : 3341);
    case Heard::Silence: return ResText(3343);
    case Heard::Garble: return ResText(3344);
    case Heard::Stranger: return ResText(124);
    case Heard::LastingAlarm: return ResText(324);
    case Heard::NoPort: return ResText(3345);
    case Heard::PortLost: break;
    }
    return ResText(3346);
}

} // namespace

LinePanel LineInWords(const PortInfo& info, bool open) {
    using enum LinePanel::Sign;
    const Heard heard = HeardHere();
    const bool failed = HasFailed(heard);
    // Somebody who works on files alone has nothing to mend.
    const bool offLine = IsSet(OffLineFlag) && !failed;
    LinePanel line;
    line.port = "COM" + std::to_string(PortNo) + ": " + info.device;
    line.open = open;
    if (!open && info.state != PortState::Ready) {
        line.sign = offLine ? Rest : Bad;
        line.state = WhatThePortLacks(info);
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
    if (LookIsDue(open)) {
        const PortInfo now = LookAtPort(PortNo);
        // What was heard goes for what stood behind the number then.
        if (!open && watched.portNo == PortNo && now.state == PortState::Ready &&
            (watched.info.state != now.state || watched.info.device != now.device)) {
            ForgetHeard();
        }
        watched = {PortNo, open, 0, now};
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
    if (HeardHere() == Heard::LastingAlarm) {
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
