#pragma once

#include <cstdint>

/// Taking the controller's actuators over.
namespace qdw8 {

/// Reads the actuators of the axes in use from the controller and works with them from then on:
/// stored and shown. 0 good; 1 an exchange failed or the controller names no usable actuator, and
/// the devices are as they were.
std::int16_t TakeOverDevicesOfController();

/// For the end of every command that can bring axes into use: no axis in use may stay without a
/// lead, pulses per revolution or a stroke end, for nothing could be converted or entered on it.
/// The actuators of such axes, and of no others, are taken over from the controller. If it names
/// none or can't be asked, an axis without a lead goes out of use, and boxes tell; one that lacks
/// its stroke end only stays. False if no axis lacked anything; else the axes are shown anew and
/// the port is closed. The poll is held meanwhile, and nothing faults.
bool CompleteAxes();

/// The same without a last word: an axis for which the controller names none stays as it is, in
/// use, and nobody is told but of an exchange that failed. The port stays open. 0: no axis lacks
/// anything any more.
std::int16_t TakeOverLackingDevices();

/// Takes the axes out of use for which nothing gives a lead or pulses per revolution. True if there
/// were any.
bool TakeOutAxesWithoutLead();

} // namespace qdw8
