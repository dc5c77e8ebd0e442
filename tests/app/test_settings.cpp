#include "app/settings.h"

#include "app/move_defaults.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

namespace qdw8::test {
namespace {

TEST(Settings, NumbersAreTheLeadingNumberOfTheText) {
    ScriptedPlatform platform;
    platform.settings = {{"A", " 12ab"}, {"B", "x"}, {"C", "99999"}, {"D", "-3"}};
    EXPECT_EQ(SettingNumber("A", 5), 12);
    EXPECT_EQ(SettingNumber("B", 5), 0);
    EXPECT_EQ(SettingNumber("C", 5), 5);
    EXPECT_EQ(SettingNumber("D", 5), -3);
    EXPECT_EQ(SettingNumber("E", 5), 5);
}

TEST(Settings, AStoredPortIsTakenAsItIs) {
    ScriptedPlatform platform;
    EXPECT_EQ(StoredPortNo(), 1);
    for (const auto& [stored, taken] : {std::pair{"9", 9}, {"12", 12}, {"99999", 0}}) {
        platform.settings["PortNo"] = stored;
        EXPECT_EQ(StoredPortNo(), taken);
    }
}

TEST(Settings, MotionDefaultsKeepJogWithinItsRange) {
    ScriptedPlatform platform;
    ReadMoveDefaults();
    EXPECT_EQ(VelOf100Pls, 20);
    EXPECT_EQ(AccOf100Pls, 3);
    EXPECT_EQ(AccOf100Pls2, 3);
    EXPECT_EQ(AccOfJog, 3);
    EXPECT_EQ(AccOfJog2, 2);
    platform.settings = {{"AccOfJog", "9"}, {"AccOfJog2", "0"}, {"VelOf100Pls", "60"}};
    ReadMoveDefaults();
    EXPECT_EQ(AccOfJog, 1);
    EXPECT_EQ(AccOfJog2, 1);
    EXPECT_EQ(VelOf100Pls, 60);
}

} // namespace
} // namespace qdw8::test
