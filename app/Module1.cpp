#include "app/Module1.h"

namespace qdw8 {

namespace {

/// The state of a fresh start.
struct RunState {
    Flag DispMmFlag = kClear;
    Flag MmRoundUpFlag = kClear;
    Flag AccWideFlag = kClear;
    Flag LanguageChangedFlag = kClear;
    std::int16_t LanguageNo = 2;
    std::int16_t LanguageBase = 10000;
    Flag FirstDeviceSetFlag = kClear;
    Flag StartDeviceSelectFlag = kClear;
    Flag TransferRunFlag = kClear;
    Flag TransferCancelFlag = kClear;
    Flag ProcessingShownFlag = kClear;
    Flag SplashDoneFlag = kClear;
    Flag RangeCancelFlag = kClear;
    Flag GrpMoveStopFlag = kClear;
    Flag ProgramEndFlag = kClear;
    Flag SettingsLossToldFlag = kClear;
    std::array<Flag, kAxes> AxisOff{};
    std::array<Flag, kAxes> CtAxisOff{};
};
RunState state;

} // namespace

Flag& DispMmFlag = state.DispMmFlag;
Flag& MmRoundUpFlag = state.MmRoundUpFlag;
Flag& AccWideFlag = state.AccWideFlag;
Flag& LanguageChangedFlag = state.LanguageChangedFlag;
std::int16_t& LanguageNo = state.LanguageNo;
std::int16_t& LanguageBase = state.LanguageBase;
Flag& FirstDeviceSetFlag = state.FirstDeviceSetFlag;
Flag& StartDeviceSelectFlag = state.StartDeviceSelectFlag;
Flag& TransferRunFlag = state.TransferRunFlag;
Flag& TransferCancelFlag = state.TransferCancelFlag;
Flag& ProcessingShownFlag = state.ProcessingShownFlag;
Flag& SplashDoneFlag = state.SplashDoneFlag;
Flag& RangeCancelFlag = state.RangeCancelFlag;
Flag& GrpMoveStopFlag = state.GrpMoveStopFlag;
Flag& ProgramEndFlag = state.ProgramEndFlag;
Flag& SettingsLossToldFlag = state.SettingsLossToldFlag;
std::array<Flag, kAxes>& AxisOff = state.AxisOff;
std::array<Flag, kAxes>& CtAxisOff = state.CtAxisOff;

int AxisMaskOf(const std::array<Flag, kAxes>& off) {
    int mask = 0;
    for (std::size_t axis = 0; axis < off.size(); ++axis) {
        if (!IsSet(off[axis])) {
            mask |= 1 << axis;
        }
    }
    return mask;
}

void SetAxisOffByMask(std::array<Flag, kAxes>& off, int mask) {
    for (std::size_t axis = 0; axis < off.size(); ++axis) {
        off[axis] = FlagOf((mask & (1 << axis)) == 0);
    }
}

void ResetModule1() {
    state = {};
}

} // namespace qdw8
