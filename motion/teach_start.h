#pragma once

#include "motion/homing.h"

#include <functional>

/// The start of teaching.
namespace qdw8 {

/// The controller's mode, the axes in use, homing where the controller says that it is due, the
/// stroke ends into `JogMaxPulse`. `homing` is called with true before the axes move and with false
/// when it waits for them no longer. True: done. False: it failed, and the user has been told, or
/// it was given up; an axis may then still move (`AxisMayMove`).
bool StartTeaching(const std::function<void(bool)>& homing, const GiveUpLook& giveUp);

} // namespace qdw8
