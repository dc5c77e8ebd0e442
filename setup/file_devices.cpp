#include "setup/file_devices.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/main_panel.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "device/device_name.h"
#include "device/device_settings.h"
#include "parameter/factory_lists.h"
#include "parameter/para_file.h"
#include "platform/fault.h"
#include "position/recovery_file.h"
#include "setup/device_copies.h"
#include "setup/devices_before.h"

#include <cstddef>
#include <vector>

namespace qdw8 {
namespace {

using AxisTexts = std::array<std::string, kAxes>;

constexpr const char* kNoSuchDevice = "the file names a device that doesn't exist";

void TakeFileAxes() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        FileAxisOff[axis] = FlagOf(FileDevText[axis].empty());
    }
}

/// True if the file uses other axes or other actuators than the program.
bool FileDiffers() {
    return CompareActuatorSettingOfPosifile2PC() == 1 || FileAxisOff != AxisOff;
}

bool UsedByBoth(std::size_t axis) {
    return !IsSet(AxisOff[axis]) && !IsSet(FileAxisOff[axis]);
}

void ParseKeptDevices() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!UsedByBoth(axis)) {
            continue;
        }
        if (FileDevText[axis] == ThePanel().lblDeviceType[axis] &&
            FileNewOld[axis] == TypeWordOf(axis)) {
            DevSettei[axis] = DevSetting[axis];
        } else if (ParseFileDevice(axis) != 0) {
            throw Fault(kNoSuchDevice);
        }
    }
}

/// One line for each axis that both use with other leads.
std::vector<std::string> LeadDifferences(const AxisTexts& leads) {
    const AxisTexts now = LeadTexts();
    std::vector<std::string> lines;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (UsedByBoth(axis) && !leads[axis].empty() && leads[axis] != now[axis]) {
            lines.push_back(ResText(static_cast<std::int16_t>(220 + axis)) + ":  " + ResText(3050) +
                            " " + ResText(3411, {now[axis]}) + ",  " + ResText(3051) + " " +
                            ResText(3411, {leads[axis]}));
        }
    }
    return lines;
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
            throw Fault(kNoSuchDevice);
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

FileDevices AskAboutDevices(const DevicesBefore& before,
                            const std::vector<std::string>& differences) {
    using enum FileDevices;
    switch (AskChoice(
        {ResText(471), ResText(44), {ResText(45), ResText(46), ResText(47)}, false, differences})) {
    case 0: LetDevSettingToDevSettei(); return Settled;
    case 1: TakeFileDevices(before); return Settled;
    case 2: return TakeParameterFile() ? Settled : Failed;
    default: return Cancelled;
    }
}

} // namespace

FileDevices SettleFileDevices(const DevicesBefore& before) {
    TakeFileAxes();
    if (ParseFileDevices() != 0) {
        throw Fault(kNoSuchDevice);
    }
    return FileDiffers() ? AskAboutDevices(before, DeviceDifferences()) : FileDevices::Settled;
}

FileDevices SettleKeptDevices(const DevicesBefore& before, const AxisTexts& leads) {
    TakeFileAxes();
    ParseKeptDevices();
    std::vector<std::string> differences = LeadDifferences(leads);
    if (!FileDiffers() && differences.empty()) {
        return FileDevices::Settled;
    }
    const std::vector<std::string> others = DeviceDifferences();
    differences.insert(differences.begin(), others.begin(), others.end());
    return AskAboutDevices(before, differences);
}

} // namespace qdw8
