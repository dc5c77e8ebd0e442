#include "devicechange/file_steps.h"

#include "device/device_settings.h"
#include "devicechange/device_copies.h"
#include "parameter/factory_lists.h"
#include "parameter/para_file.h"
#include "parameter/para_rows.h"
#include "position/device_change.h"

namespace qdw8 {
namespace {

constexpr std::int16_t kTitle = 686;

/// Asks and reads, with the tries that a parameter file gets everywhere; what was read waits in the
/// row table. Nothing when the user cancelled or the file was refused.
std::optional<std::string> AskParameterFile() {
    if (AskAndReadParaFile(kTitle) != 0) {
        return std::nullopt;
    }
    return CellText(ParaRowTable.at(0, kRowFileName));
}

std::int16_t TakeParameterFile(const std::string&) {
    return ApplyRowTable(RowSource::File);
}

void TakeAndStoreDevices() {
    if (TakeDevicesOfParaSet() == 0) {
        WriteDeviceSettings();
    }
}

} // namespace

void InstallDeviceChangeSteps() {
    DeviceChangeSteps& steps = DeviceChange();
    steps.CompareActuatorSettingOfPosifile2PC = CompareActuatorSettingOfPosifile2PC;
    steps.LetDevSettingToDevSettei = LetDevSettingToDevSettei;
    steps.ReflectFileDevice2PcDevice = ReflectFileDevice2PcDevice;
    steps.LoadFactoryParameters = LoadFactoryParameters;
    steps.AskParameterFile = AskParameterFile;
    steps.ReadParameterFile = TakeParameterFile;
    steps.TakeParameterDevices = TakeAndStoreDevices;
}

} // namespace qdw8
