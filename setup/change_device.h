#pragma once

/// The user's commands that change which actuators the program believes in.
namespace qdw8 {

/// Asks by which way, the catalogue or a parameter file, takes the actuators over, stores and shows
/// them, and checks the position table against them. A way that was cancelled or failed leaves
/// axes, devices and parameters as they were and leads back to the question; its Cancel ends the
/// command. At start-up (`StartDeviceSelectFlag`) there is none, but the end of the program
/// (`ProgramEndFlag`), confirmed at a title bar, ends it too. A change takes the program off line,
/// with `OffLineFlag` and `OnLineFlag` both set.
void Change_Device();

/// `Change_Device` from the button and from start-up, and from the menu.
void cmdChangeDev_Click();
void mnuSettingsDeviceOffline_Click();

/// Opens `frmDevice3`, which writes a change into the controller at once. Without a device list for
/// an axis in use it stays away, after the list's own box.
void mnuSettingsDeviceOnline_Click();

} // namespace qdw8
