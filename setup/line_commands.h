#pragma once

/// The small commands of the line: those that ask the controller what it is, and the way off line.
namespace qdw8 {

/// `cmdReset` and `mnuFuncAlmReset`.
void cmdReset_Click();
/// Asks, then goes off line.
void mnuSettingsOffline_Click();
/// Shows the versions of the main unit and of each axis in use.
void mnuFuncCtversion_Click();
/// Reads, shows and takes over the axes that the controller uses. An axis that comes into use and
/// of which nothing is known brings its actuator along from the controller; if it can't, the user
/// is told and it goes out of use again. Devices that are known stay as they are.
void mnuFuncGetAxis_Click();

} // namespace qdw8
