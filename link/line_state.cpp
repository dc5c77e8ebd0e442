#include "link/line_state.h"

#include "app/main_panel.h"

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct LineState {
    Flag OffLineFlag = kClear;
    Flag OnLineFlag = kClear;
    Flag CtBusyFlag = kClear;
    Flag CommErrorFlag = kClear;
    Flag AlarmFlag = kClear;
    Flag HomedFlag = kClear;
    LineLoss LastLoss = LineLoss::None;
    LineHeard LastHeard;
    bool LineAnswers = true;
    std::int16_t ReplyTimeoutMs = 0;
    std::int16_t CtModeAnswered = -1;
    std::string CtVersion;
    std::int16_t CtAxisCount = 0;
    std::array<std::string, kAxes> CtAxisVersion;
};
LineState state;

} // namespace

Flag& OffLineFlag = state.OffLineFlag;
Flag& OnLineFlag = state.OnLineFlag;
Flag& CtBusyFlag = state.CtBusyFlag;
Flag& CommErrorFlag = state.CommErrorFlag;
Flag& AlarmFlag = state.AlarmFlag;
Flag& HomedFlag = state.HomedFlag;
LineLoss& LastLoss = state.LastLoss;
LineHeard& LastHeard = state.LastHeard;
bool& LineAnswers = state.LineAnswers;
std::int16_t& ReplyTimeoutMs = state.ReplyTimeoutMs;
std::int16_t& CtModeAnswered = state.CtModeAnswered;
std::string& CtVersion = state.CtVersion;
std::int16_t& CtAxisCount = state.CtAxisCount;
std::array<std::string, kAxes>& CtAxisVersion = state.CtAxisVersion;

void ForgetHeard() {
    LastHeard = {};
    CtAxisCount = 0;
}

void SetOnlineState() {
    if (IsSet(OffLineFlag)) {
        OffLineFlag = kClear;
        OnLineFlag = kSet;
    }
    SetPanel(&MainPanel::imgGreenLedOnline, true);
}

void SetOfflineState() {
    if (!IsSet(OffLineFlag)) {
        OffLineFlag = kSet;
        OnLineFlag = kClear;
    }
    if (LastHeard.what == Heard::Answer) {
        LastHeard = {};
    }
    SetPanel(&MainPanel::imgGreenLedOnline, false);
}

void ResetLineState() {
    state = {};
}

} // namespace qdw8
