#pragma once

#include <cstdint>

/// The actuators of the four axes in the stored settings, `DevSize1` and its like.
namespace qdw8 {

/// Fills the devices of all four axes, in use or not, from the store; where the device list has the
/// model, its lead and pulses per revolution win over the stored ones. 0 good. 1 some axis is bad:
/// its key or its lead is out of range and the list doesn't help; the fields of that axis which
/// were good are taken over, the others are as they were. Without a device list one box comes for
/// each axis.
std::int16_t ReadDeviceSettings();

/// Stores the device of each axis in use.
void WriteDeviceSettings();

} // namespace qdw8
