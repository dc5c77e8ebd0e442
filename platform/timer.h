#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace qdw8 {

/// A timer of a window: while it is enabled its routine runs every `interval` milliseconds, out of
/// the event pump and never anywhere else. An interval of 0 never fires.
///
/// The fields are read freely; they change only through the routines below, which tell the
/// platform.
/// A timer must be disabled before the object goes away.
struct Timer {
    std::string name;
    std::int32_t interval = 0; ///< milliseconds; 0 never fires
    bool enabled = false;
    std::function<void()> routine;
};

/// Sets the interval. An enabled timer starts a whole new interval from now.
void SetInterval(Timer& timer, std::int32_t milliseconds);

/// Enables the timer: the first call of its routine comes one whole interval from now, also when
/// the timer was enabled before.
void EnableTimer(Timer& timer);

/// Disables the timer: its routine is not called again until it is enabled.
void DisableTimer(Timer& timer);

} // namespace qdw8
