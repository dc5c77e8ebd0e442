#include "app/move_defaults.h"

#include "app/settings.h"

namespace qdw8 {

std::int16_t VelOf100Pls = 20;
std::int16_t AccOf100Pls = 3;
std::int16_t AccOf100Pls2 = 3;
std::int16_t AccOfJog = 3;
std::int16_t AccOfJog2 = 2;

namespace {

std::int16_t JogAcceleration(const char* key, std::int16_t fallback) {
    const std::int16_t stored = SettingNumber(key, fallback);
    return stored >= 1 && stored <= 3 ? stored : std::int16_t{1};
}

} // namespace

void ReadMoveDefaults() {
    VelOf100Pls = SettingNumber("VelOf100Pls", 20);
    AccOf100Pls = SettingNumber("AccOf100Pls", 3);
    AccOf100Pls2 = SettingNumber("AccOf100Pls2", 3);
    AccOfJog = JogAcceleration("AccOfJog", 3);
    AccOfJog2 = JogAcceleration("AccOfJog2", 2);
}

} // namespace qdw8
