#include "setup/device_bytes.h"

#include "app/number_forms.h"
#include "device/axis_device.h"
#include "link/ct_commands.h"
#include "link/exchange.h"
#include "link/receiver.h"
#include "parameter/para_blocks.h"
#include "platform/fault.h"

namespace qdw8 {
namespace {

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
    const ActuatorParts parts = ActuatorOfBytes(BlockNumber(8, 1), BlockNumber(9, 1));
    device.Size = parts.size;
    device.Speed = parts.speed;
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
        if (ReadParaBlock(DeviceBlockOf(axis)) != 0) {
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
