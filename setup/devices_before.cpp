#include "setup/devices_before.h"

namespace qdw8 {

void DevicesBefore::putBack() const {
    AxisOff = off;
    putBackButAxes();
}

void DevicesBefore::putBackButAxes() const {
    DevSetting = setting;
    DevSettei = settei;
    FamilyText = family;
    FileAxisOff = fileOff;
    ParaSet = parameters;
}

bool DevicesBefore::haveChanged() const {
    return AxisOff != off || DevSetting != setting;
}

} // namespace qdw8
