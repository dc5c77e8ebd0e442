#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The ways between what the program works with (`DevSetting`, `AxisOff`) and what a file or a
/// pending change says (`DevSettei`, `FileAxisOff`). They copy the model, the type and the options
/// of an axis: `NewType`, `DevSize`, `DevSpeed`, `DevStroke`, `WithPG`, `Vertical`.
namespace qdw8 {

/// `DevSettei` takes over `DevSetting`, for each axis in use.
void LetDevSettingToDevSettei();

/// The axes of the file become the axes in use, then `DevSetting` takes over `DevSettei` for each
/// of them. Lead, pulses and stroke end are left: they come with the parameters.
void ReflectFileDevice2PcDevice();

/// 1 if an axis in use in the file has another actuator in `DevSettei` than in `DevSetting`, else
/// 0. Which axes are in use on the PC is not looked at.
std::int16_t CompareActuatorSettingOfPosifile2PC();

/// One line for each axis on which program and file differ, with both names side by side, each with
/// its own family; for a file that was just read into `FileDevText` and `DevSettei`.
std::vector<std::string> DeviceDifferences();

/// The axes and actuators of `ParaSet` become those that the program works with, type and family
/// included. 0 good. 1 `ParaSet` names no usable actuator for an axis in use: a box told so, and
/// axes and devices are as they were.
std::int16_t TakeDevicesOfParaSet();

/// The same after a write, when the controller holds that set already: 0 good; 1 some axis has no
/// usable actuator, which a box told if it has one at all, and no device has changed. `AxisOff`
/// follows the set in any case.
std::int16_t FollowDevicesOfParaSet();

} // namespace qdw8
