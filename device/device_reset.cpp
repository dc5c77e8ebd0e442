#include "device/device_reset.h"

#include "device/axis_device.h"
#include "device/device_list.h"
#include "device/device_name.h"

namespace qdw8 {

void ResetDevices() {
    AxisDevice unknown;
    unknown.NewType = kSet;
    DevSetting.fill(unknown);
    DevSettei.fill(unknown);
    FileAxisOff.fill(kSet);
    FamilyText.fill("QD");
    FileDevText.fill({});
    FileNewOld.fill({});
    DeviceTextEmpty.fill(kClear);
    CtDevice.fill(ControllerDevice{});
    CodeTexts = {};
    DeviceListTables.fill(DeviceListTable{});
    DeviceListFailed.fill(kClear);
    FoundLeadPpr = {};
    ResetDeviceListBoxes();
}

} // namespace qdw8
