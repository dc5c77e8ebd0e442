#include "program/startup.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "link/alarm.h"
#include "link/end_of_run.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/supervision.h"
#include "parameter/para_device.h"
#include "parameter/para_fields.h"
#include "platform/fault.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_table.h"
#include "program/commands.h"
#include "program/shutdown.h"
#include "setup/detail_edit.h"
#include "support/boxes.h"
#include "support/every_step.h"
#include "tables/groups.h"
#include "tables/macros.h"
#include "tables/sm_table.h"

namespace qdw8::test {
namespace {

const SelectionQuestion kStartMode{
    "Select",
    "By which shall PC software be used between on-line and off-line?",
    {"Online", "Offline"},
    false};
const SelectionQuestion kActuators{
    "Select",
    "Actuator Setting",
    {"The type of QD is selected, and the default parameter is read.",
     "The parameter file is opened."},
    true};
struct StartBench : LineBench {
    StartBench() {
        Screens().frmSplashShow = [this] { note("splash"); };
        Screens().frmSplashUnload = [this] { note("splash gone"); };
        Screens().frmMainShow = [this](bool small) {
            note(small ? "small window" : "window");
            EXPECT_FALSE(IsEnabled(Command::cmdPosiRead)) << "commands are off until the end";
        };
    }
    void note(const std::string& what) {
        platform.events.push_back(std::to_string(platform.now) + " " + what);
    }
    /// Start-up with an answer to the first question and, off line, what the user chooses as
    /// fitted; `why`: the box that says why it doesn't go on line.
    void start(
        std::int16_t answer, bool offLine, const std::function<void()>& choose = [] {},
        const std::string& why = {}) {
        platform.expectSelection(kStartMode, answer);
        if (!why.empty()) {
            platform.expectBox(why);
        }
        if (offLine) {
            platform.expectSelection(kActuators, 0);
            platform.expectScreen("frmDevice2", [choose] {
                EXPECT_EQ(StartDeviceSelectFlag, kSet);
                choose();
            });
        }
        Main();
    }
    void expectUsable() const {
        EXPECT_TRUE(IsEnabled(Command::cmdPosiRead));
        EXPECT_TRUE(IsEnabled(Command::mnuFileSaveAs));
        EXPECT_FALSE(TheTransferDialog().shown);
    }
    void expectStoredDevices() const {
        EXPECT_EQ(OffLineFlag, kSet);
        EXPECT_FALSE(ThePanel().imgGreenLedOnline);
        EXPECT_EQ(DevSetting[0].DevSize, " 44");
        EXPECT_EQ(DevSetting[1].DevLead, 2);
        expectUsable();
    }
    /// The rows of positions 1 to `last`.
    static void showRows(std::int16_t last) {
        GridFirst = PosiFirst = 1;
        GridLast = PosiLast = GridRowCount = last;
        ClearPosiTable();
        QdDataHyoji_3();
    }
    /// What the user is asked at the end, and whether the program then ends.
    void expectEnd(BoxAnswer answer, bool ends) {
        const bool dirty = IsSet(PosiDirtyFlag);
        platform.expectBox(dirty ? BoxText("save first") : BoxText("finish"),
                           dirty ? BoxButtons::YesNoCancel : BoxButtons::OkCancel, answer);
        EXPECT_EQ(frmMain_QueryUnload(), ends);
    }
};
using StartUp = Unit<StartBench>;

TEST_F(StartUp, OnLineRunsToTheEnd) {
    std::vector<int> steps;
    Screens().frmTrance = [&steps] {
        if (TheTransferDialog().shown) {
            steps.push_back(TheTransferDialog().prgBar1);
            EXPECT_FALSE(TheTransferDialog().cancelShown);
        }
    };
    start(0, false);
    EXPECT_EQ(steps, (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(platform.events[0] + ", " + platform.events[1], "0 splash, 2000 splash gone");
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0CM02", "0CM1", "0RV", "0RD0", "0RD6",
                                                       "0RD8", "0RDA", "0RDC"}));
    EXPECT_TRUE(ThePanel().imgGreenLedOnline && !IsSet(OffLineFlag));
    EXPECT_EQ(ThePanel().lblErrorComment, "No Error");
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{}));
    EXPECT_EQ(ThePanel().lblDeviceType[0].substr(0, 10), "QD- 61H-30");
    EXPECT_EQ(DevSetting[1].MaxStrokeMm, 100);
    EXPECT_EQ(ThePanel().lblFileName, "QD-W8 Ver1.40E");
    EXPECT_TRUE(platform.portOpen) << "the port is kept";
    expectUsable();
}

TEST_F(StartUp, BeginsWithoutATimerOfTheRunBeforeAndLeavesNoneWhereItBreaksOff) {
    int opened = 0;
    Screens().frmParameta2Show = [&opened](bool) { ++opened; };
    EnableTimer(frmMain_Timer2);
    ThePlatform().PumpEvents = [] { throw Fault("nothing goes on"); };
    EXPECT_THROW(Main(), Fault);
    DetailEditFlag = kSet;
    platform.run(3000);
    EXPECT_EQ(opened, 0);
    EXPECT_EQ(SplashDoneFlag, kClear);
}

TEST(StartUpSteps, EveryFailureEndsOffLineWithTheStoredDevices) {
    EveryStep<StartBench>([](StartBench& bench) { bench.start(0, true); },
                          [](StartBench& bench, const Step& step) {
                              if (IsSet(OffLineFlag)) {
                                  bench.expectStoredDevices();
                                  EXPECT_TRUE(!bench.platform.portOpen || step.number > 3);
                              } else {
                                  EXPECT_EQ(DevSetting[0].DevSize, " 61");
                                  bench.expectUsable();
                              }
                          });
}

TEST_F(StartUp, AnotherControllerIsRefusedAndAPortIsTriedSixTimes) {
    line.controller.setAxisCount(2);
    start(
        0, true, [] {}, BoxText("stranger"));
    platform.failingOpens = -1;
    platform.settings["PortNo"] = "3";
    start(
        0, true, [] {}, BoxText("port"));
    EXPECT_EQ(std::count(platform.events.begin(), platform.events.end(), "open fails"), 6);
    EXPECT_EQ(PortNo, 3);
}

TEST_F(StartUp, AnAxisWithoutALeadLeadsToTheStoredDevicesOneWithoutAModelToTheChoice) {
    line.controller.setBlock(8, std::string(32, '0'));
    start(0, true);
    expectStoredDevices();
    // lead 2, 400 pulses, stroke end 20000, and no size, speed or stroke
    line.controller.setBlock(8, "0102019000004E20" + std::string(16, '0'));
    start(0, true, [] {
        for (AxisDevice& device : DevSettei) {
            device.DevSize = " 44";
            device.DevSpeed = "L";
            device.DevStroke = 100;
        }
    });
    EXPECT_EQ(OffLineFlag, kSet);
    EXPECT_EQ(DevSetting[1].MaxPulse, 20000) << "what the user chose";
    expectUsable();
}

TEST_F(StartUp, AnAxisThatNothingIsKnownOfStaysOutOfUse) {
    platform.settings["DevSize2"] = "4";
    platform.settings["DevLead2"] = "99";
    start(
        1, true,
        [] {
            AxisOff = {kClear, kSet, kClear, kClear};
        },
        BoxText("not selected"));
    EXPECT_EQ(AxisOff[1], kSet);
    expectUsable();
}

TEST_F(StartUp, OddSettingsAreTakenAsTheyMean) {
    platform.settings = {{"Language", "3"},
                         {"DispMmUnit", "0"},
                         {"MmRoundUp", "abc"},
                         {"PortNo", "99999"},
                         {"PortOccupy", "7"}};
    platform.screen = {800, 600};
    platform.expectBox(BoxText("small screen"));
    start(1, true);
    EXPECT_EQ(LanguageNo, 3);
    EXPECT_EQ(LanguageBase, 10000);
    EXPECT_EQ(DispMmFlag + MmRoundUpFlag + PortNo, 0);
    EXPECT_EQ(PortOccupyFlag, kSet);
    platform.screen = {801, 600};
    platform.settings = {{"Language", "1"}};
    Screens().frmSelection = [](const SelectionQuestion& asked) {
        EXPECT_NE(asked.text, kStartMode.text);
        return kSelectionCancelled; // counts as off line
    };
    Screens().frmMainShow = [](bool small) {
        EXPECT_FALSE(small);
        ProgramEndFlag = kSet; // the questions that follow are not for this test
    };
    Main();
    EXPECT_EQ(LanguageBase, 0);
    EXPECT_EQ(DispMmFlag, kSet);
}

TEST_F(StartUp, MissingListsAreToldAndTheProgramGoesOn) {
    leaveListsBehind();
    platform.expectBox(BoxText("no list"));
    platform.expectSelection(kStartMode, 1);
    platform.expectBox("No device list file."); // once, though each axis of the settings is asked
    platform.expectBox(BoxText("no device list"));
    Main();
    EXPECT_EQ(ErrorListMissingFlag, kSet);
    expectUsable();
}

TEST_F(StartUp, TheTitleBarOfTheDeviceChoiceEndsTheProgram) {
    start(1, true, [] { ProgramEndFlag = DeviceCancelled = kSet; });
    platform.checkAllAsked();
    EXPECT_TRUE(platform.ended);
}

TEST_F(StartUp, TheEndAsksAndStoresPortAndLanguage) {
    start(0, false);
    expectEnd(BoxAnswer::Cancel, false);
    EXPECT_TRUE(platform.portOpen);
    expectEnd(BoxAnswer::Ok, true);
    EXPECT_FALSE(platform.portOpen);
    showRows(2);
    PosiDirtyFlag = kSet;
    expectEnd(BoxAnswer::Cancel, false);
    expectEnd(BoxAnswer::No, true);
    platform.expectBox(BoxText("save first"), BoxButtons::YesNoCancel, BoxAnswer::Yes);
    platform.expectScreen("frmSelectPosiNo3", [] { PosiLast = 1; });
    platform.expectBox("Write Data to the file,Yes?", BoxButtons::OkCancel, BoxAnswer::Ok);
    platform.expectFile({FileQuestion::Kind::Save, "Save Position Data as ...",
                         "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*", "qdd", "qdw8posi.qdd", "",
                         kOverwritePrompt},
                        FileAnswer{pathOf("part.qdd"), "part.qdd"});
    EXPECT_FALSE(frmMain_QueryUnload()) << "a part is not the whole";
    ResetGrid();
    platform.expectBox(BoxText("save first"), BoxButtons::YesNoCancel, BoxAnswer::Yes);
    platform.expectBox(BoxText("no data"));
    EXPECT_FALSE(frmMain_QueryUnload()) << "nothing was saved, so the window stays";
    EXPECT_FALSE(platform.ended);
    PortNo = 4;
    LanguageChangedFlag = kSet;
    for (const auto& [now, next] : {std::pair{1, "2"}, {2, "1"}, {7, "1"}}) {
        LanguageNo = static_cast<std::int16_t>(now);
        frmMain_Unload();
        EXPECT_EQ(platform.settings["Language"], next);
    }
    EXPECT_EQ(platform.settings["PortNo"], "4");
    EXPECT_TRUE(platform.ended);
}

TEST_F(StartUp, EachWindowWithEditsIsAskedAboutBeforeTheEnd) {
    start(0, false);
    std::string front;
    Screens().frmParameta2Show = [&front](bool) { front += "parameters "; };
    Screens().frmGrpShow = [&front] { front += "groups "; };
    Screens().frmSqMcrShow = [&front] { front += "macros "; };
    Screens().frmMainFront = [&front] { front += "main "; };
    Screens().frmMainBack = [&front] { front += "back "; };
    const auto ask = [this](BoxAnswer last) {
        for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::No, last}) {
            platform.expectBox("Data have been changed.Save the data into the file?",
                               BoxButtons::YesNoCancel, answer);
        }
    };
    ParaEditedFlag = kSet;
    Groups().state.unsaved = Macros().state.unsaved = true;
    ask(BoxAnswer::Cancel);
    EXPECT_FALSE(frmMain_QueryUnload());
    EXPECT_EQ(front, "parameters groups macros ");
    SmTable[1][0].command = 7; // refused, so it isn't saved; and the other edits still stand
    ask(BoxAnswer::Yes);
    platform.expectBox(TextLines({921, 922, 938}) + "\r\n<1>,");
    EXPECT_FALSE(frmMain_QueryUnload());
    ask(BoxAnswer::No);
    expectEnd(BoxAnswer::Cancel, false);
    EXPECT_TRUE(front.ends_with("macros main back "));
    ask(BoxAnswer::No);
    expectEnd(BoxAnswer::Ok, true);
    EXPECT_TRUE(front.ends_with("macros main "));
}

TEST_F(StartUp, ACloseDuringTheStartEndsItAtTheNextStep) {
    line.controller.setTurnaround(40);
    platform.expectSelection(kStartMode, 0);
    platform.after(2020, [this] { expectEnd(BoxAnswer::Ok, false); });
    Main();
    EXPECT_TRUE(platform.ended);
    EXPECT_EQ(platform.sent, std::vector<std::string>{"0CM02"});
    EXPECT_EQ(AskBox("", BoxButtons::YesNoCancel), BoxAnswer::Cancel);
    EXPECT_EQ(AskBox("", BoxButtons::YesNo), BoxAnswer::No);
}

TEST_F(StartUp, NothingIsPolledWhileSomethingIsAsked) {
    start(0, false);
    platform.sent.clear();
    AlarmFlag = PosiDirtyFlag = kSet;
    int asked = 0;
    const auto wait = [&] {
        ++asked;
        platform.run(2000);
    };
    ThePlatform().ShowMessageBox = [&](const auto&) { return wait(), BoxAnswer::Cancel; };
    ThePlatform().CommonDialog1.ShowPrinter = [&](const auto&) {
        return wait(), PrinterAnswer::Cancel;
    };
    EditCMD_Yuko();
    for (const Command command :
         {Command::mnuEditLineCopy, Command::mnuFilePageSetup, Command::mnuFileClose}) {
        RunCommand(command);
    }
    EXPECT_FALSE(frmMain_QueryUnload());
    EXPECT_EQ(asked, 4);
    EXPECT_TRUE(platform.sent.empty());
}

TEST_F(StartUp, ACommandThatIsKeptFinishesTheCellWhenItIsChosen) {
    start(0, false);
    int finished = 0;
    Screens().flgdDataFinishInput = [&finished] { return ++finished > 0; };
    line.controller.setTurnaround(100);
    AlarmFlag = kSet;
    platform.after(10, [&] {
        RunCommand(Command::cmdPosiLoad);
        EXPECT_EQ(finished, 1);
        EXPECT_EQ(flgdData().locked, 1) << "what is typed now comes behind the command";
    });
    platform.expectBox(BoxText("no data"));
    SupervisionTick();
    platform.checkAllAsked();
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(flgdData().locked, 0);
}

} // namespace
} // namespace qdw8::test
