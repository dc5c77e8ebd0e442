#pragma once

#include "app/Module1.h"

#include <cstdint>

/// What the parameters say of the actuators, and the choice of an actuator whose factory parameters
/// are wanted.
namespace qdw8 {

extern Flag FactoryDeviceFlag; ///< -1 while the device window serves a load of factory parameters
extern Flag DeviceCancelled;   ///< -1: the device window was left by Cancel; the caller clears it

/// The axes and actuators of `ParaSet` become what the program works with, and the stroke ends in
/// mm follow. 0 good. 1 not: an axis in use names no actuator (`DeviceTextEmpty` is set, the axes
/// before it are done), or, after a box, it holds what no device can have, such as more pulses per
/// revolution than 32767 or a stroke end beyond the limits of the parameter check, and no device
/// has changed. A model that the device list lacks is taken. `AxisOff`
/// follows the mask in any case. Whether the axis counts as one of the family is left to
/// `FamilyText`.
std::int16_t TakeParameterDevices();

/// `MaxPulse` of each axis in use from item `STROKE`, in pulses; an axis out of use gets 0. Faults
/// when it doesn't fit into 32 bits; the axes before it are done.
void Culc_MaxPulse2();

/// Lets the user choose the actuators and loads their factory parameters into `ParaSet`. 0 done, -1
/// cancelled, 1 failed after a box.
std::int16_t SelectDeviceAndLoadFactory();

} // namespace qdw8
