#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// The range checks of `ParaSet`. Nothing is reported and nothing corrected: the caller decides.
namespace qdw8 {

/// 0 every value is good, 1 any is bad. The items of an axis out of use are not looked at,
/// whatever they hold; the common items always are, the acceleration setting never.
std::int16_t ParametaValueCheck();

/// The same before a device write: only the items that the device decides, of the axes in use.
std::int16_t ParametaValueCheck2();

/// True if the parameters of the axis (0 to 3) that make a device pass: stroke end, lead, pulses
/// and the parts of its actuator.
bool DeviceFiguresGood(std::size_t axis);

/// The parts of an actuator, each by itself: a size code, a speed letter, a stroke in mm.
bool SizeCodeGood(const std::string& size);
bool SpeedLetterGood(const std::string& speed);
bool DeviceStrokeGood(double stroke);

} // namespace qdw8
