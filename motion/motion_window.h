#pragma once

#include "app/screens.h"

#include <functional>

/// The windows that act on the machine: move test, teaching, I/O monitor. Each wants the controller
/// in a mode of its own, so only one of them is open at a time.
namespace qdw8 {

/// What opens the window, or brings it to the front.
using MotionWindow = std::function<void()> ScreenFunctions::*;

/// Opens the window. Where another of them is open, that one comes to the front instead.
void OpenMotionWindow(MotionWindow window);

/// The one that was open is gone.
void MotionWindowClosed();

} // namespace qdw8
