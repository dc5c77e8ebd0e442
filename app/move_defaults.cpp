#include "app/move_defaults.h"

#include "app/settings.h"

namespace qdw8 {

namespace {

/// The state of a fresh start: not read yet. A value in range would pass for a stored one, and the
/// options would write it over what the user has set.
struct MoveDefaults {
    std::int16_t VelOf100Pls = 0;
    std::int16_t AccOf100Pls = 0;
    std::int16_t AccOf100Pls2 = 0;
    std::int16_t AccOfJog = 0;
    std::int16_t AccOfJog2 = 0;
};
MoveDefaults state;

} // namespace

std::int16_t& VelOf100Pls = state.VelOf100Pls;
std::int16_t& AccOf100Pls = state.AccOf100Pls;
std::int16_t& AccOf100Pls2 = state.AccOf100Pls2;
std::int16_t& AccOfJog = state.AccOfJog;
std::int16_t& AccOfJog2 = state.AccOfJog2;

namespace {

std::int16_t JogAcceleration(const char* key, std::int16_t fallback) {
    const std::int16_t stored = SettingNumber(key, fallback);
    return stored >= 1 && stored <= 3 ? stored : std::int16_t{1};
}

} // namespace

void ReadMoveDefaults() {
    VelOf100Pls = SettingNumber("VelOf100Pls", kVelOf100Pls);
    AccOf100Pls = SettingNumber("AccOf100Pls", kAccOf100Pls);
    AccOf100Pls2 = SettingNumber("AccOf100Pls2", kAccOf100Pls);
    AccOfJog = JogAcceleration("AccOfJog", 3);
    AccOfJog2 = JogAcceleration("AccOfJog2", 2);
}

void ResetMoveDefaults() {
    state = {};
}

} // namespace qdw8
