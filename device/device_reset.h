#pragma once

namespace qdw8 {

/// Puts every variable of the device room into the state of a fresh start: no actuator known, every
/// axis of the family "QD" and of the new type, no list read. `AxisOff` is not one of them.
void ResetDevices();

} // namespace qdw8
