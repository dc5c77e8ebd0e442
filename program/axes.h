#pragma once

#include "parameter/para_device.h" // start-up and the command both end with it

namespace qdw8 {

/// Repaints what follows from the axes in use and their devices: heads, colours, scale.
void RepaintAxes();

/// `mnuFuncGetAxis`: reads, shows and takes over the axes that the controller uses. An axis that
/// comes into use and of which nothing is known brings its actuator along from the controller; if
/// it can't, the user is told and it goes out of use again. Devices that are known stay as they
/// are.
void CheckAxes_Click();

} // namespace qdw8
