#include "link/link_fixture.h"

#include "link/Module3Tusin.h"

#include <utility>

namespace qdw8::test {

LinkBench::LinkBench() {
    ErrorList.fill({});
    ErrorList[0].code = "2";
    ErrorList[1] = {"13", "Homing not completed"};
    ErrorList[2] = {"24", "Home sensor not detected"};
    GoOnLine();
    SetOnlineState();
    ClearAlarmDisplay();
    seen = ThePanel();
    Screens().frmMainPanel = [this] { notePanel(); };
}

void LinkBench::letAlarmStand() {
    AlarmFlag = kSet;
    ErrorNo = "9";
    ErrorText = "Old alarm";
    SetPanel(&MainPanel::imgAlarmLed, true);
    SetPanel(&MainPanel::lblAlarmNo, ErrorNo);
    SetPanel(&MainPanel::lblErrorComment, ErrorText);
    newEvents();
}

std::vector<std::string> LinkBench::newEvents() {
    return std::exchange(platform.events, {});
}

std::string LinkBench::state() {
    std::string text;
    const auto add = [&text](bool on, const char* name) {
        text += on ? std::string(name) + " " : "";
    };
    add(IsSet(OffLineFlag), "OffLine");
    add(IsSet(OnLineFlag), "OnLine");
    add(MSComm1().PortOpen(), "PortOpen");
    add(IsSet(CommErrorFlag), "CommError");
    add(IsSet(AlarmFlag), "Alarm");
    add(IsSet(AlarmNotResettableFlag), "NotResettable");
    add(IsSet(ErrorFoundFlag), "ErrorFound");
    add(IsSet(CtBusyFlag), "CtBusy");
    add(timerTimeout.enabled, "timerTimeout");
    if (!text.empty()) {
        text.pop_back();
    }
    return text;
}

void LinkBench::notePanel() {
    const MainPanel& panel = ThePanel();
    const auto note = [this](bool changed, const std::string& event) {
        if (changed) {
            platform.events.push_back(event);
        }
    };
    const auto word = [](bool on) { return on ? "on" : "off"; };
    note(panel.imgGreenLedOnline != seen.imgGreenLedOnline,
         std::string("online lamp ") + word(panel.imgGreenLedOnline));
    note(panel.imgAlarmLed != seen.imgAlarmLed,
         std::string("alarm lamp ") + word(panel.imgAlarmLed));
    note(panel.lblAlarmNo != seen.lblAlarmNo, "alarm No. " + panel.lblAlarmNo);
    note(panel.lblErrorComment != seen.lblErrorComment, "alarm text " + panel.lblErrorComment);
    seen = panel;
}

} // namespace qdw8::test
