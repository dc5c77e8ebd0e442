#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// The data of the frames that move axes by hand. A button, 0 to 7, is axis x 2, and one more for
/// minus.
namespace qdw8 {

/// `0JR`: a direction digit for each axis, "1" plus, "2" minus, then the tenth of `percent`, cut;
/// "0", the full speed, for a `percent` outside 10 to 90.
std::string JogData(std::size_t button, int percent);

/// Where a step ends that begins at `position`; both in pulses, and so `end`, the stroke end.
/// Nothing where the axis is not to move: plus at the stroke end, minus from below the step. Minus
/// at 0 is sent, and the axis stands. A plus step beyond the stroke end is sent as it is; the
/// controller judges it.
std::optional<std::int32_t> InchingTarget(std::size_t button, int step, std::int32_t position,
                                          std::int32_t end);

/// `0MV`: a block for each axis, with the speed and accelerations of a pulse feed; only the axis of
/// the button moves, to `target`. Not of `kInchingData` characters for a figure that its field
/// can't hold.
inline constexpr std::size_t kInchingData = 36;
std::string InchingData(std::size_t button, std::int32_t target);

} // namespace qdw8
