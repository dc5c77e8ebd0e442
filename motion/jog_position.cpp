#include "motion/jog_position.h"

#include "app/number_forms.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "link/ct_commands.h"
#include "link/receiver.h"
#include "link/stop.h"
#include "platform/fault.h"

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct JogPosition {
    AxisPulses JogPresentPos;
    std::array<std::int32_t, kAxes> JogMaxPulse{};
};
JogPosition state;

/// The fields of the reply, one for each axis in use. Faults for one that is no number.
AxisPulses CutPositions() {
    constexpr std::size_t kDigits = 5;
    std::size_t from = 5;
    AxisPulses pulses;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            pulses[axis] = HexValue(Mid(ReplyText, from, kDigits));
            from += kDigits;
        }
    }
    return pulses;
}

} // namespace

AxisPulses& JogPresentPos = state.JogPresentPos;
std::array<std::int32_t, kAxes>& JogMaxPulse = state.JogMaxPulse;

std::int16_t ReadnDisp_PresentPos() {
    if (ReadPresentPosition() != 0) {
        return 1;
    }
    try {
        state.JogPresentPos = CutPositions();
        return 0;
    } catch (const Fault&) {
        TellBehindStop(ShowWrongData);
        return 1;
    }
}

bool TeachesInMm() {
    bool inMm = IsSet(DispMmFlag);
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const AxisDevice& device = DevSetting[axis];
        inMm = inMm && (IsSet(AxisOff[axis]) || (device.DevLead != 0 && device.DevPPR != 0));
    }
    return inMm;
}

std::string JogPosText(std::size_t axis, std::int32_t pulse) {
    const AxisDevice& device = DevSetting.at(axis);
    return TeachesInMm() ? FixedDecimals(PulseToMm(device.DevLead, device.DevPPR, pulse), 3)
                         : std::to_string(pulse);
}

void TellBehindStop(const std::function<void()>& box) {
    if (IsSet(AxisMayMove)) {
        StopMotion();
    }
    box();
}

void ResetJogPosition() {
    state = {};
}

} // namespace qdw8
