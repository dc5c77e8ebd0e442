#pragma once

#include <cstdint>

/// The actuator data of the four axes as the controller's memory holds them, in the blocks 6, 8, A
/// and C.
namespace qdw8 {

/// Reads the block of each axis in use into `CtDevice`; an axis out of use gets an empty device.
/// 0 good, 1 failed (the axes read before keep what was read).
std::int16_t ReadDeviceBytes();

/// The read above, compared with `DevSetting`: -1 the read failed, 0 alike, 1 different.
std::int16_t CompareDeviceSettings();

} // namespace qdw8
