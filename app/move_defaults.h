#pragma once

#include <cstdint>

/// The speeds and accelerations that the move test and the teaching window begin with. The second
/// acceleration of each pair is that of the model `QD-61F`.
namespace qdw8 {

/// Where nothing is stored.
inline constexpr std::int16_t kVelOf100Pls = 20;
inline constexpr std::int16_t kAccOf100Pls = 3; ///< both of them

/// 0 each until they have been read or set.
extern std::int16_t& VelOf100Pls; ///< speed of a pulse feed, 1 to 60
extern std::int16_t& AccOf100Pls; ///< acceleration of a pulse feed, 1 to 3
extern std::int16_t& AccOf100Pls2;
extern std::int16_t& AccOfJog; ///< acceleration of JOG, 1 to 3
extern std::int16_t& AccOfJog2;

/// Loads all five from the settings. A stored JOG acceleration outside 1 to 3 reads as 1, not as
/// its default.
void ReadMoveDefaults();

void ResetMoveDefaults();

} // namespace qdw8
