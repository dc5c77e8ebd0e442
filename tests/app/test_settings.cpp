// Settings, file questions and the transfer dialog.

#include "app/settings.h"

#include "app/Module1.h"
#include "app/file_questions.h"
#include "app/move_defaults.h"
#include "app/transfer_dialog.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

namespace qdw8::test {
namespace {

TEST(Settings, NumbersAreTheLeadingNumberOfTheText) {
    ScriptedPlatform platform;
    platform.settings = {{"A", " 12ab"}, {"B", "x"}, {"C", "99999"}, {"D", "-3"}};
    for (const auto& [key, value] : {std::pair{"A", 12}, {"B", 0}, {"C", 5}, {"D", -3}, {"E", 5}}) {
        EXPECT_EQ(SettingNumber(key, 5), value) << key;
    }
    EXPECT_EQ(StoredPortNo(), 1);
    for (const auto& [stored, taken] : {std::pair{"9", 9}, {"12", 12}, {"99999", 0}}) {
        platform.settings["PortNo"] = stored;
        EXPECT_EQ(StoredPortNo(), taken) << "as it is";
    }
}

TEST(Settings, MotionDefaultsKeepJogWithinItsRange) {
    ScriptedPlatform platform;
    const auto all = [] {
        return std::vector<int>{VelOf100Pls, AccOf100Pls, AccOf100Pls2, AccOfJog, AccOfJog2};
    };
    platform.settings = {{"AccOfJog", "9"}, {"AccOfJog2", "0"}, {"VelOf100Pls", "60"}};
    ReadMoveDefaults();
    EXPECT_EQ(all(), (std::vector<int>{60, 3, 3, 1, 1}));
    ResetMoveDefaults();
    EXPECT_EQ(all(), std::vector<int>(5)) << "not read: the options look into the store";
    platform.settings.clear();
    ReadMoveDefaults();
    EXPECT_EQ(all(), (std::vector<int>{20, 3, 3, 3, 2}));
}

TEST(FileQuestions, AnEmptyPathIsNoAnswer) {
    ScriptedPlatform platform;
    ThePlatform().CommonDialog1.ShowFile = [](const auto&) { return FileAnswer{}; };
    EXPECT_FALSE(AskFileToOpen({351, "qdd"}, 364, "/f"));
    EXPECT_FALSE(AskFileToSave({351, "qdd"}, 364, "x"));
}

TEST(TransferDialog, BarStaysAtItsEndsAndAPressGivesNoWaitUp) {
    ResetModule1();
    ResetTransferDialog();
    const TransferShown shown(10, 368, TransferShown::Cancel::Yes);
    for (const auto& [value, bar] : {std::pair{4, 4}, {11, 10}, {-1, 0}}) {
        shown.moveTo(value);
        EXPECT_EQ(TheTransferDialog().prgBar1, bar);
    }
    cmdTranceCancel_Click();
    EXPECT_EQ(GrpMoveStopFlag, kClear) << "none is offered to be given up";
}

} // namespace
} // namespace qdw8::test
