#pragma once

#include <cstdint>

/// Which axes the controller uses: byte 6 of its memory block 0. 0 good, 1 failed; a failed read
/// leaves the flags as they were.
namespace qdw8 {

/// Into `AxisOff`. The port is opened first, with six tries.
std::int16_t ReadAxisMask();
/// The same with the steps of the transfer dialog, which must be up.
std::int16_t ReadAxisMaskShown();
/// Into `CtAxisOff`, for a comparison, without any box: six tries, 100 ms apart.
std::int16_t ReadAxisMaskQuiet();

} // namespace qdw8
