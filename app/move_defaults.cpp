#include "app/move_defaults.h"

#include "app/settings.h"

namespace qdw8 {

namespace {

/// The state of a fresh start.
struct MoveDefaults {
    std::int16_t VelOf100Pls = 20;
    std::int16_t AccOf100Pls = 3;
    std::int16_t AccOf100Pls2 = 3;
    std::int16_t AccOfJog = 3;
    std::int16_t AccOfJog2 = 2;
};
constexpr MoveDefaults kFresh;
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
    VelOf100Pls = SettingNumber("VelOf100Pls", kFresh.VelOf100Pls);
    AccOf100Pls = SettingNumber("AccOf100Pls", kFresh.AccOf100Pls);
    AccOf100Pls2 = SettingNumber("AccOf100Pls2", kFresh.AccOf100Pls2);
    AccOfJog = JogAcceleration("AccOfJog", kFresh.AccOfJog);
    AccOfJog2 = JogAcceleration("AccOfJog2", kFresh.AccOfJog2);
}

void ResetMoveDefaults() {
    state = {};
}

} // namespace qdw8
