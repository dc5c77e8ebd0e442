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
    /// Asks for a parameter file. Nothing when the user cancelled.
    std::function<std::optional<std::string>()> AskParameterFile;
    /// Reads a parameter file into the parameters. 0 read, 1 it can't be read.
    std::function<std::int16_t(const std::string& path)> ReadParameterFile;
    /// Makes the parameters' devices and axes those that the program works with, and stores them.
    std::function<void()> TakeParameterDevices;
};

/// The steps in force.
DeviceChangeSteps& DeviceChange();

} // namespace qdw8
