#pragma once

#include <cstddef>
#include <string>

/// The texts that name the actuator of each axis on the main window.
namespace qdw8 {

/// Writes the head over each axis' grid columns and its label `lblDeviceType`. At the first axis in
/// use of a foreign family it stops, and the texts of that axis and the later ones stay as they
/// are. Without a device list each lookup shows its box and the option marks stay blank.
void ShowAxisDevices();

/// What a position file says of the type of an axis (0 to 3) beside the name that the main window
/// shows: "NEW" or "OLD". An axis without a name, or out of use, counts as new.
std::string TypeWordOf(std::size_t axis);

} // namespace qdw8
