#include "app/boxes.h"
#include "app/string_table.h"
#include "link/stop.h"
#include "platform/whole_file.h"
#include "position/grid_cursor.h"
#include "position/grid_editor.h"
#include "position/posi_file.h"
#include "position/position_reset.h"
#include "position/recovery.h"
#include "position/recovery_file.h"
#include "position/recovery_slot.h"
#include "setup/recovery_offer.h"
#include "setup/repaint_axes.h"
#include "setup_bench.h"

#include <filesystem>

namespace qdw8::test {
namespace {

namespace fs = std::filesystem;

struct RecoveryBench : SetupBench {
    RecoveryBench() {
        RepaintAxes();
        PosiFolder = folder;
        StartKeeping();
        showRows(5, 7);
    }
    std::string table(int slot = 1) const {
        return pathOf("state/positions-" + std::to_string(slot) + ".unsaved");
    }
    std::string kept(int slot = 1) const {
        return fs::exists(table(slot)) ? ReadWholeFile(table(slot)) : "";
    }
    static void change(const std::string& comment) {
        type(5, kComment, comment);
        PosiDirtyFlag = kSet;
    }
    /// A run that was killed has left its table, and the next one has just started.
    static void crash() {
        KeepUnsavedNow();
        ResetPositions();
    }
    /// What the start asks, and then keeps.
    void offer(std::int16_t answer, const std::string& file = "", const char* unit = "(pls)") {
        platform.expectSelection({"Select",
                                  ResText(3400),
                                  {ResText(3401), ResText(3402), ResText(3403)},
                                  false,
                                  {"File: " + file, "Kept: 2024/11/21  09:05:07",
                                   std::string("Position No.: 5 to 7, 3 rows ") + unit}},
                                 answer);
    }
    void askDevices(const std::string& difference, std::int16_t answer = 0) {
        platform.expectSelection(
            {"Select", ResText(44), {ResText(45), ResText(46), ResText(47)}, false, {difference}},
            answer);
    }
    void start() {
        RepaintAxes();
        OfferRecovery();
        platform.checkAllAsked();
    }
};
using Recovery = Unit<RecoveryBench>;

TEST_F(Recovery, KeepsAtMostEveryTenSecondsAndOnlyWhatIsUnsaved) {
    platform.run(20000);
    EXPECT_FALSE(fs::exists(pathOf("state")));
    change("one");
    platform.run(1000);
    const std::string one = kept();
    EXPECT_NE(one, "");
    change("two");
    platform.run(9000);
    EXPECT_EQ(kept(), one);
    platform.run(1000);
    EXPECT_TRUE(kept().find("two") != one.npos);
    NothingUnsaved();
    EXPECT_EQ(kept(), "");
    // what is half typed, until it is given up
    SelectCells(2, 1, 2, 1);
    StartEdit();
    SetEditText("1");
    platform.run(10000);
    EXPECT_NE(kept(), "");
    CancelEdit();
    platform.run(1000);
    EXPECT_EQ(kept(), "");
    // a stop waits for no disk
    change("three");
    AxisMayMove = kSet;
    platform.run(20000);
    EXPECT_EQ(kept(), "");
    KeepUnsavedNow();
    EXPECT_NE(kept(), "");
    AxisMayMove = kClear;
    EndKeeping();
    platform.run(20000);
    KeepUnsavedNow();
    EXPECT_TRUE(fs::is_empty(pathOf("state")));
}

TEST_F(Recovery, TakesTheTableBackAsTheUserSawIt) {
    for (const Flag mm : {kSet, kClear}) {
        DispMmFlag = mm;
        showRows(5, 7);
        ASSERT_EQ(SaveFileAs2("mine.qdd"), 0);
        change(R"(a\tb '軸)");
        type(6, kPosi, "12,5");
        type(7, kAcc, "");
        GoToCell(4, 1);
        StartEdit();
        SetEditText("4");
        SetEditSpoiled(true);
        const std::string seen = TextOf(TableOnScreen());
        crash();
        DispMmFlag = IsSet(mm) ? kClear : kSet;
        for (const bool changed : {false, true}) {
            if (changed) {
                fs::last_write_time(pathOf("mine.qdd"), fs::file_time_type());
            }
            offer(0, pathOf("mine.qdd"), IsSet(mm) ? "(mm)" : "(pls)");
            // the start that is killed under a window of the check has not failed
            platform.expectScreen("frmSyogoKekka", [this] {
                EXPECT_EQ(fs::file_size(pathOf("state/positions-1.lock")), 0U);
            });
            platform.expectBox(ResText(1526));
            start();
            EXPECT_EQ(TextOf(TableOnScreen()) == seen, !changed);
            EXPECT_EQ(PosiFilePath, changed ? "" : pathOf("mine.qdd"));
            EXPECT_EQ(cell(6, kPosi) + PosiFileName, "12,5mine");
            EXPECT_TRUE(IsSet(PosiDirtyFlag) && PosiTable[7].written);
            ResetRecovery(); // the next one is killed as it stands
        }
        StartKeeping(std::make_unique<RecoverySlot>(1));
        NothingUnsaved();
        EXPECT_EQ(kept(), "");
    }
}

TEST_F(Recovery, OtherDevicesAreAskedAboutAndNothingIsLostByAnyAnswer) {
    change("kept");
    crash();
    DevSetting[0].DevStroke = DevSettei[0].DevStroke = 300;
    const Everything before;
    offer(0);
    askDevices("AXIS 1:  program QD-44L-300,  file QD-44L-100", kSelectionCancelled);
    offer(kSelectionCancelled);
    start();
    EXPECT_EQ(Everything(), before);
    EXPECT_EQ(flgdData().rows.size(), kGridHeadRows);
    showRows(5, 6);
    change("mine");
    platform.run(1000);
    EXPECT_NE(kept(1), kept(2));
    // this one still runs when another is started, which is asked about the first alone
    const RecoverySlot other(3);
    fs::copy_file(table(2), table(3));
    ResetRecovery();
    const RecoverySlot another(2);
    offer(2);
    start();
    EXPECT_EQ(kept(1), "");
    EXPECT_TRUE(fs::exists(table(2)) && fs::exists(table(3)));
}

TEST_F(Recovery, WhatIsNotShownNowStaysUntilTheTableIsSaved) {
    fs::create_directories(pathOf("state/positions-1.lock")); // somebody else's, not to be opened
    DevSetting[0].DevStroke = DevSettei[0].DevStroke = 120;   // the device list lacks it
    DispMmFlag = kSet;
    RepaintAxes();
    showRows(5, 7);
    type(6, kAxisColumns + kVel, "17");
    change("four axes");
    crash();
    const std::string first = kept(2);
    AxisOff[1] = kSet;
    offer(0, "", "(mm)");
    askDevices("AXIS 2:  program not in use,  file QD-52H-200E(Old)");
    start();
    change("one axis");
    crash();
    EXPECT_EQ(kept(2), first);
    offer(0, "", "(mm)"); // the newest
    start();
    EndKeeping();
    AxisOff[1] = kClear;
    DevSetting[1].DevLead = 8;
    offer(0, "", "(mm)");
    askDevices("AXIS 2:  program LEAD/PULSE 8/400,  file LEAD/PULSE 6/400");
    start();
    EXPECT_EQ(cell(6, kAxisColumns + kVel), "17");
    EndKeeping();
    EXPECT_EQ(kept(2) + kept(3), "");
}

TEST_F(Recovery, WhatCannotBeTakenAwayIsTold) {
    change("saved");
    platform.run(1000);
    fs::rename(table(), pathOf("elsewhere"));
    fs::create_directories(table());
    platform.expectBox(Lines({ResText(3410), table() + ": Is a directory"}));
    EndKeeping();
}

TEST_F(Recovery, WhatIsNotATableOfItsOwnIsSetAsideOrLeft) {
    KeptTable read;
    change("kept");
    crash();
    const std::string good = kept();
    for (std::size_t i = 0; i < good.size(); ++i) {
        std::string bad = good;
        bad[i] ^= 1;
        EXPECT_NE(ReadKeptTable(bad, read), KeptForm::Good) << i;
        EXPECT_EQ(ReadKeptTable(good.substr(0, i), read), KeptForm::Damaged) << i;
    }
    WriteWholeFile(table(), "QD-W8 unsaved positions\t2\nwhatever");
    platform.expectBox(Lines({ResText(3409), table()}));
    start();
    const std::string lock = pathOf("state/positions-1.lock");
    WriteWholeFile(lock, "x"); // of a start that died behind the reading
    {
        RecoverySlot slot(1);
        { const RecoverySlot::Attempt reading(slot); }
        EXPECT_EQ(slot.failures(), 1);
    }
    const std::vector<std::pair<std::string, std::string>> strange{
        {good.substr(1), ""}, {"", ""}, {good, "xx"}}; // the last was too much for two starts
    for (const auto& [bytes, marks] : strange) {
        ResetRecovery();
        WriteWholeFile(table(), bytes);
        WriteWholeFile(lock, marks);
        const std::string aside = table() + ".aside" +
                                  (bytes == good   ? "2"
                                   : bytes.empty() ? "1"
                                                   : "");
        platform.expectBox(Lines({ResText(3408), aside}));
        start();
        EXPECT_EQ(ReadWholeFile(aside), bytes);
        EXPECT_EQ(kept(), "");
    }
}

TEST_F(Recovery, AFolderThatTakesNothingIsToldOnce) {
    ThePlatform().stateFolder = writeFile("no-folder", "") + "/QD-W8";
    change("lost");
    SelectCells(2, 1, 2, 1);
    StartEdit();
    platform.run(20000); // nobody is told in the middle of typing
    CancelEdit();
    int told = 0;
    ThePlatform().ShowMessageBox = [&](const BoxQuestion& box) {
        EXPECT_TRUE(box.text.starts_with(ResText(3407) + "\r\n" + pathOf("no-folder")));
        ++told;
        platform.run(30000);
        return BoxAnswer::Ok;
    };
    platform.run(60000);
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace qdw8::test
