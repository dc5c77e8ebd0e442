#pragma once

/// The texts that name the actuator of each axis on the main window.
namespace qdw8 {

/// Writes the head over each axis' grid columns and its label `lblDeviceType`. At the first axis in
/// use of a foreign family it stops, and the texts of that axis and the later ones stay as they
/// are. Without a device list each lookup shows its box and the option marks stay blank.
void ShowAxisDevices();

} // namespace qdw8
