#include "app/Module1.h"

namespace qdw8 {

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
std::array<Flag, kAxes> AxisOff{};
std::array<Flag, kAxes> CtAxisOff{};
std::int16_t RetryCount = 0;

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
    DispMmFlag = kClear;
    MmRoundUpFlag = kClear;
    AccWideFlag = kClear;
    LanguageChangedFlag = kClear;
    LanguageNo = 2;
    LanguageBase = 10000;
    FirstDeviceSetFlag = kClear;
    StartDeviceSelectFlag = kClear;
    TransferRunFlag = kClear;
    TransferCancelFlag = kClear;
    ProcessingShownFlag = kClear;
    SplashDoneFlag = kClear;
    RangeCancelFlag = kClear;
    AxisOff.fill(kClear);
    CtAxisOff.fill(kClear);
    RetryCount = 0;
}

} // namespace qdw8
