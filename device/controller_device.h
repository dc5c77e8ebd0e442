#pragma once

#include "device/axis_device.h"

#include <cstdint>

/// What the controller says is fitted, as last read into `CtDevice`, becomes what the program works
/// with. The two routines run in this order after every such read.
namespace qdw8 {

/// Kind, options, lead, pulses and stroke end of each axis in use. 0 good. 1 the devices are as
/// they were: an axis in use has more pulses per revolution than 32767, a stroke end beyond 262143
/// pulses or a device stroke beyond 500 mm, which a box told, or its lead or its pulses are 0,
/// which means that the controller was never set up for it.
std::int16_t TakeControllerFlags();
/// The same for these axes alone; the others are neither judged nor touched.
std::int16_t TakeControllerFlags(const AxisChoice& axes);

/// Size, speed and stroke of each axis in use into `DevSetting`. 0 good. 1 the controller names no
/// device for an axis: a size of other than three characters, a speed that is no capital letter, no
/// stroke; the axes before it are done.
std::int16_t TakeControllerDevices();
/// The same for these axes alone.
std::int16_t TakeControllerDevices(const AxisChoice& axes);

} // namespace qdw8
