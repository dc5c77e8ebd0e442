#pragma once

#include <cstdint>

/// What the controller says is fitted, as last read into `CtDevice`, becomes what the program works
/// with. The two routines run in this order after every such read.
namespace qdw8 {

/// Kind, options, lead, pulses and stroke end of each axis in use. 0 good. 1 the devices are as
/// they were: an axis in use has more pulses per revolution than 32767, which a box told, or its
/// lead or its pulses are 0, which means that the controller was never set up for it.
std::int16_t TakeControllerFlags();

/// Size, speed and stroke of each axis in use into `DevSetting`. 0 good. 1 the controller names no
/// device for an axis; the axes before it are done.
std::int16_t TakeControllerDevices();

} // namespace qdw8
