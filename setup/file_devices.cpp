#include "setup/file_devices.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "device/device_name.h"
#include "device/device_settings.h"
#include "parameter/factory_lists.h"
#include "parameter/para_file.h"
#include "platform/fault.h"
#include "setup/device_copies.h"
#include "setup/devices_before.h"

namespace qdw8 {
namespace {

/// True if the file uses other axes or other actuators than the program.
bool FileDiffers() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        FileAxisOff[axis] = FlagOf(FileDevText[axis].empty());
    }
    if (ParseFileDevices() != 0) {
        throw Fault("the file names a device that doesn't exist");
    }
    return CompareActuatorSettingOfPosifile2PC() == 1 || FileAxisOff != AxisOff;
}

std::int16_t TakeAndStoreDevices() {
    if (TakeDevicesOfParaSet() != 0) {
        return 1;
    }
    WriteDeviceSettings();
    return 0;
}

/// The actuators of the file with their factory parameters; if they can't be had, the positions
/// are opened with the actuators of before.
void TakeFileDevices(const DevicesBefore& before) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const bool newlyUsed = IsSet(AxisOff[axis]) && !IsSet(FileAxisOff[axis]);
        if (newlyUsed && ParseFileDevice(axis) != 0) {
            throw Fault("the file names a device that doesn't exist");
        }
    }
    ReflectFileDevice2PcDevice();
    if (LoadFactoryParameters() != 0 || TakeAndStoreDevices() != 0) {
        before.putBack();
    }
}

/// The actuators of a parameter file. False: the command ends, and a box has told why.
bool TakeParameterFile() {
    const std::int16_t result = OpenParaFile();
    if (result == -1) {
        ShowTexts({367});
    }
    return result == 0 && TakeAndStoreDevices() == 0;
}

} // namespace

FileDevices SettleFileDevices(const DevicesBefore& before) {
    using enum FileDevices;
    if (!FileDiffers()) {
        return Settled;
    }
    switch (AskChoice({ResText(471),
                       ResText(44),
                       {ResText(45), ResText(46), ResText(47)},
                       false,
                       DeviceDifferences()})) {
    case 0: LetDevSettingToDevSettei(); return Settled;
    case 1: TakeFileDevices(before); return Settled;
    case 2: return TakeParameterFile() ? Settled : Failed;
    default: return Cancelled;
    }
}

} // namespace qdw8
