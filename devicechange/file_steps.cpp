#include "devicechange/file_steps.h"

#include "device/device_settings.h"
#include "devicechange/device_copies.h"
#include "parameter/factory_lists.h"
#include "parameter/para_file.h"
#include "position/device_change.h"

namespace qdw8 {
namespace {

std::int16_t TakeAndStoreDevices() {
    if (TakeDevicesOfParaSet() != 0) {
        return 1;
    }
    WriteDeviceSettings();
    return 0;
}

} // namespace

void InstallDeviceChangeSteps() {
    DeviceChangeSteps& steps = DeviceChange();
    steps.CompareActuatorSettingOfPosifile2PC = CompareActuatorSettingOfPosifile2PC;
    steps.LetDevSettingToDevSettei = LetDevSettingToDevSettei;
    steps.ReflectFileDevice2PcDevice = ReflectFileDevice2PcDevice;
    steps.LoadFactoryParameters = LoadFactoryParameters;
    steps.OpenParameterFile = OpenParaFile;
    steps.TakeParameterDevices = TakeAndStoreDevices;
}

} // namespace qdw8
