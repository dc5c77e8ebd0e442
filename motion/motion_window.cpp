#include "motion/motion_window.h"

#include "link/window_command.h"

namespace qdw8 {
namespace {

/// The one that is open. The state of a fresh start: none.
MotionWindow open = nullptr;

} // namespace

void OpenMotionWindow(MotionWindow window) {
    if (open == nullptr) {
        open = window;
        ReserveLine(true);
    }
    (Screens().*open)();
}

void MotionWindowClosed() {
    open = nullptr;
    ReserveLine(false);
}

} // namespace qdw8
