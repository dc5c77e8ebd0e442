#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

/// What opening a file that was made for other actuators asks of the rooms that know the devices
/// and the parameters. The program fills the members at its start; opening such a file without
/// them ends as any failed opening does.
namespace qdw8 {

struct DeviceChangeSteps {
    /// 1 if an axis in use in the file has another actuator than `DevSetting`, else 0.
    std::function<std::int16_t()> CompareActuatorSettingOfPosifile2PC;
    /// `DevSettei` takes over what `DevSetting` says, for each axis in use.
    std::function<void()> LetDevSettingToDevSettei;
    /// `AxisOff` takes over `FileAxisOff`, then `DevSetting` what `DevSettei` says.
    std::function<void()> ReflectFileDevice2PcDevice;
    /// Loads the factory parameters of all items for the devices in `DevSetting`. 0 good; 1 failed,
    /// and a box has told why.
    std::function<std::int16_t()> LoadFactoryParameters;
    /// Asks for a parameter file and reads it into the parameters, with the tries that it gets
    /// everywhere. 0 read; -1 cancelled; 1 it can't be used, and a box has told why.
    std::function<std::int16_t()> OpenParameterFile;
    /// Makes the parameters' devices and axes those that the program works with, and stores them.
    /// 0 good; 1 they can't be used, a box has told so, and the devices are as they were.
    std::function<std::int16_t()> TakeParameterDevices;
};

/// The steps in force.
DeviceChangeSteps& DeviceChange();

} // namespace qdw8
