#include "parameter/device_bytes.h"

#include "app/number_forms.h"
#include "device/axis_device.h"
#include "link/Module3Tusin.h"
#include "link/ct_commands.h"
#include "platform/fault.h"

namespace qdw8 {
namespace {

/// The block that holds the actuator of an axis (0 to 3).
constexpr int ActuatorBlock(std::size_t axis) {
    return 6 + 2 * static_cast<int>(axis);
}

/// `count` bytes from byte `from` of the block that stands in `ReplyText`, most significant first.
std::int32_t BlockNumber(std::size_t from, std::size_t count) {
    return HexValue(Mid(ReplyText, 5 + 2 * from, 2 * count));
}

/// Cuts the reply by the controller's memory map. Faults on a field that is no number.
ControllerDevice CutDevice() {
    ControllerDevice device;
    device.KindCode = ToInt16(BlockNumber(0, 1));
    device.Lead = ToInt16(BlockNumber(1, 1));
    device.PPR = BlockNumber(2, 2);
    device.Function = ToInt16(BlockNumber(4, 1));
    device.MaxPulse = BlockNumber(5, 3);
    const std::int32_t size = BlockNumber(8, 1);
    const std::int32_t letter = BlockNumber(9, 1);
    if (letter == 'E') {
        // J52 has no number of its own: the controller holds it as 52 and the letter E.
        device.Size = "J52";
        device.Speed = "L";
    } else {
        device.Size = std::to_string(size);
        if (device.Size.size() == 2) {
            device.Size.insert(device.Size.begin(), ' ');
        }
        // A memory that was never set holds no letter at all.
        const bool isText = letter > ' ' && letter < 0x7F;
        device.Speed = isText ? std::string(1, static_cast<char>(letter)) : "";
    }
    device.Stroke = ToInt16(BlockNumber(10, 2));
    return device;
}

bool Differs(const AxisDevice& pc, const ControllerDevice& ct) {
    const bool ctWithPg = ct.Function == 1 || ct.Function == 2;
    const bool pgDiffers = IsSet(pc.WithPG) ? ct.Function == 0 : ctWithPg;
    return pgDiffers || pc.DevLead != ct.Lead || pc.DevPPR != ct.PPR ||
           pc.MaxPulse != ct.MaxPulse || pc.DevSize != ct.Size || pc.DevSpeed != ct.Speed ||
           pc.DevStroke != ct.Stroke;
}

} // namespace

std::int16_t ReadDeviceBytes() {
    for (std::size_t axis = 0; axis < CtDevice.size(); ++axis) {
        if (IsSet(AxisOff[axis])) {
            CtDevice[axis] = ControllerDevice{};
            continue;
        }
        if (ReadParaBlock(ActuatorBlock(axis)) != 0) {
            return 1;
        }
        try {
            CtDevice[axis] = CutDevice();
        } catch (const Fault&) {
            ShowWrongData();
            return 1;
        }
    }
    return 0;
}

std::int16_t CompareDeviceSettings() {
    if (ReadDeviceBytes() != 0) {
        return -1;
    }
    for (std::size_t axis = 0; axis < CtDevice.size(); ++axis) {
        if (!IsSet(AxisOff[axis]) && Differs(DevSetting[axis], CtDevice[axis])) {
            return 1;
        }
    }
    return 0;
}

} // namespace qdw8
