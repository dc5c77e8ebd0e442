#pragma once

#include <cstdint>
#include <functional>

namespace qdw8 {

/// Waits `ms` milliseconds (above 0; 0 would never end) while events go on. Waits may nest; each
/// takes its own time.
void MsecTimer(std::int16_t ms);

/// Runs `attempt`, which returns true when it was good, up to six times, 100 ms apart. False:
/// all six failed. What `attempt` throws ends the tries and goes on to the caller.
bool SixTries(const std::function<bool()>& attempt);

} // namespace qdw8
