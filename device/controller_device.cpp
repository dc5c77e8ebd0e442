#include "device/controller_device.h"

#include "link/ct_commands.h"

#include <limits>

namespace qdw8 {
namespace {

constexpr std::int16_t kOldKind = 0;
constexpr std::int16_t kNewKind = 1;

// What a parameter may be at the most; a memory that holds more was never set or is spoiled.
constexpr std::int16_t kMostLead = 255;
constexpr std::int32_t kMostPulses = 262143;
constexpr std::int16_t kLongestStroke = 500;

/// Checked for all axes before any is touched, so that no axis is left half taken over.
std::int16_t CheckNumbers(const AxisChoice& axes) {
    for (std::size_t axis = 0; axis < CtDevice.size(); ++axis) {
        if (!axes[axis]) {
            continue;
        }
        const ControllerDevice& ct = CtDevice[axis];
        if (ct.PPR > std::numeric_limits<std::int16_t>::max() || ct.Lead > kMostLead ||
            ct.MaxPulse > kMostPulses || ct.Stroke > kLongestStroke) {
            ShowWrongData();
            return 1;
        }
        if (ct.Lead == 0 || ct.PPR == 0) {
            return 1;
        }
    }
    return 0;
}

/// A name that a file could hold, and that can be read from there again.
bool IsNamed(const ControllerDevice& ct) {
    constexpr std::size_t kSizeLength = 3;
    return ct.Size.size() == kSizeLength && ct.Speed.size() == 1 && ct.Speed[0] >= 'A' &&
           ct.Speed[0] <= 'Z' && ct.Stroke != 0;
}

void TakeFlags(AxisDevice& device, const ControllerDevice& ct) {
    const bool own = ct.KindCode == kOldKind || ct.KindCode == kNewKind;
    device.Device = FlagOf(own);
    device.Vertical = FlagOf(ct.KindCode == kNewKind);
    if (ct.KindCode != kNewKind) {
        device.NewType = kClear;
    } else if (ExistsOnlyAsNew(ct.Size)) {
        device.NewType = kSet;
    } // the kind doesn't tell the two types of the other sizes apart: what was known stands
    device.WithPG = FlagOf(ct.Function == 1 || ct.Function == 2);
}

} // namespace

std::int16_t TakeControllerFlags() {
    return TakeControllerFlags(AxesInUse());
}

std::int16_t TakeControllerFlags(const AxisChoice& axes) {
    if (CheckNumbers(axes) != 0) {
        return 1;
    }
    for (std::size_t axis = 0; axis < CtDevice.size(); ++axis) {
        if (!axes[axis]) {
            continue;
        }
        const ControllerDevice& ct = CtDevice[axis];
        TakeFlags(DevSetting[axis], ct);
        TakeFlags(DevSettei[axis], ct);
        DevSetting[axis].DevLead = ct.Lead;
        DevSetting[axis].DevPPR = static_cast<std::int16_t>(ct.PPR);
        DevSetting[axis].MaxPulse = ct.MaxPulse;
    }
    return 0;
}

std::int16_t TakeControllerDevices() {
    return TakeControllerDevices(AxesInUse());
}

std::int16_t TakeControllerDevices(const AxisChoice& axes) {
    for (std::size_t axis = 0; axis < CtDevice.size(); ++axis) {
        if (!axes[axis]) {
            continue;
        }
        const ControllerDevice& ct = CtDevice[axis];
        if (!IsNamed(ct)) {
            return 1;
        }
        AxisDevice& device = DevSetting[axis];
        device.DevSize = ct.Size;
        device.DevSpeed = ct.Speed;
        device.DevStroke = ct.Stroke;
        device.Device = kSet;
        FamilyText[axis] = "QD"; // the stored family follows the flag
        if (ExistsOnlyAsNew(ct.Size)) {
            device.NewType = kSet;
            DevSettei[axis].NewType = kSet;
        }
    }
    return 0;
}

} // namespace qdw8
