#pragma once

#include <cstdint>

/// Which axes the controller uses: byte 6 of its memory block 0. 0 good, 1 failed; a failed read
/// leaves the flags as they were.
namespace qdw8 {

/// Into `AxisOff`. The port is opened first, with six tries.
std::int16_t ReadAxisMask();
/// The same with the steps of the transfer dialog, which must be up.
std::int16_t ReadAxisMaskShown();
/// Into `CtAxisOff`, for a comparison, in up to six tries, 100 ms apart, that tell nothing. No
/// further try when the port is gone, which is told once with the port box, when the user gave the
/// wait up, or at the end of the program.
std::int16_t ReadAxisMaskQuiet();
/// The same for a command that ends without a result: a failure tells once, with the port box or
/// else box 377; who gave the wait up knows.
std::int16_t ReadAxisMaskToCompare();

} // namespace qdw8
