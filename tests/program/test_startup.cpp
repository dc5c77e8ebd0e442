#include "program/startup.h"

#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "link/Module3Tusin.h"
#include "platform/whole_file.h"
#include "position/posi_table.h"
#include "program/commands.h"
#include "program/shutdown.h"
#include "support/simulated_line.h"

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

namespace qdw8::test {
namespace {

const SelectionQuestion kStartMode{
    "Select",
    "By which shall PC software be used between on-line and off-line?",
    {"Online", "Offline"},
    false};
const std::string kTimeout = "Communication timeout error!\r\n\r\nCheck the followings;\r\n\r\n "
                             "1.Power ON for controller?\r\n\r\n 2.Communication cables are "
                             "connected?";
const std::string kPortBox = "Failed Communication port open.\r\n\r\nPlease check a setting of a "
                             "communication port.";
const std::string kNotK8 =
    "This is not \"QD-K8\" controller.\r\nPlease check whether a controller is QD-K8.";
const std::string kNoErrorList =
    "No error list file.\r\nPut error list in the folder in which the program saved in  order to "
    "indicate error information correctly.";
const std::string kNoDeviceList =
    "No device list file.\r\nPut device list file in the folder in which the program is saved in "
    "order to indicate device information correctly.";
const std::string kNoData = "There is no position data.\r\nPlease try again after perform [New "
                            "Data] or [Read from C/T] and then editing data. ";
const std::string kReselect = "Device type is not selected.\r\nPlease select device type again.";

class StartUp : public testing::Test {
protected:
    StartUp() : line(platform) {
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
    void start(std::int16_t answer) {
        platform.expectSelection(kStartMode, answer);
        Main();
        platform.checkAllAsked();
    }
    void startOnLine() { start(0); }
    /// Off line the user has to say what is fitted; here he leaves things as they are.
    void expectDeviceChoice(std::function<void()> choose = {}) {
        platform.expectSelection({"Select",
                                  "Actuator Setting",
                                  {"The type of QD is selected, and the default parameter is read.",
                                   "The parameter file is opened."},
                                  true},
                                 0);
        platform.expectScreen("frmDevice2", [choose] {
            EXPECT_EQ(StartDeviceSelectFlag, kSet);
            if (choose) {
                choose();
            }
        });
    }
    void startOffLine() {
        platform.expectSelection(kStartMode, 1);
        expectDeviceChoice();
        Main();
        platform.checkAllAsked();
    }

    void expectUsable() const {
        EXPECT_TRUE(IsEnabled(Command::cmdPosiRead));
        EXPECT_TRUE(IsEnabled(Command::mnuFileSaveAs));
        EXPECT_TRUE(IsEnabled(Command::cmdReset));
        EXPECT_FALSE(IsEnabled(Command::cmdOpenMoveWin)) << "not built";
        EXPECT_FALSE(TheTransferDialog().shown);
        EXPECT_EQ(CtBusyFlag, kClear);
    }
    void expectOffLine() const {
        EXPECT_EQ(OffLineFlag, kSet);
        EXPECT_FALSE(ThePanel().imgGreenLedOnline);
        EXPECT_FALSE(platform.portOpen);
        EXPECT_EQ(DevSetting[0].DevSize, " 44") << "the stored devices are in force";
        expectUsable();
    }

    ScriptedPlatform platform;
    SimulatedLine line;
};

TEST_F(StartUp, OnLineRunsToTheEnd) {
    startOnLine();
    EXPECT_EQ(platform.events[0], "0 splash");
    EXPECT_EQ(platform.events[1], "2000 splash gone");
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0CM02", "0CM1", "0RV", "0RD0", "0RD6",
                                                       "0RD8", "0RDA", "0RDC"}));
    EXPECT_EQ(OffLineFlag, kClear);
    EXPECT_TRUE(ThePanel().imgGreenLedOnline);
    EXPECT_EQ(ThePanel().lblErrorComment, "No Error");
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{}));
    EXPECT_EQ(DevSetting[0].DevSize + DevSetting[0].DevSpeed, " 61H");
    EXPECT_EQ(DevSetting[2].DevSize, "J52");
    EXPECT_EQ(DevSetting[3].DevPPR, 192);
    EXPECT_EQ(DevSetting[1].MaxStrokeMm, 100);
    EXPECT_EQ(ThePanel().lblDeviceType[0].substr(0, 10), "QD- 61H-30");
    EXPECT_EQ(ThePanel().lblFileName, "QD-W8 Ver1.40E");
    EXPECT_EQ(DispMmFlag, kSet);
    EXPECT_TRUE(platform.portOpen) << "the port is kept";
    expectUsable();
}

TEST_F(StartUp, ThePortIsClosedAtTheEndWhenItIsNotKept) {
    platform.settings["PortOccupy"] = "0";
    platform.settings["PortNo"] = "3";
    startOnLine();
    EXPECT_EQ(platform.openedPort, 3);
    EXPECT_FALSE(platform.portOpen);
    EXPECT_EQ(OffLineFlag, kClear);
}

TEST_F(StartUp, TheBarShowsEachStep) {
    std::vector<int> steps;
    Screens().frmTrance = [&] {
        if (TheTransferDialog().shown) {
            steps.push_back(TheTransferDialog().prgBar1);
            EXPECT_FALSE(TheTransferDialog().cancelShown);
            EXPECT_EQ(TheTransferDialog().prgBar1Max, 4);
        }
    };
    startOnLine();
    EXPECT_EQ(steps, (std::vector<int>{0, 1, 2, 3, 4}));
}

struct FailureCase {
    const char* name;
    const char* rule; ///< fault at the line
    std::vector<std::string> boxes;
    std::size_t sent; ///< frames that went out
};

class StartUpFailures : public StartUp, public testing::WithParamInterface<FailureCase> {};

TEST_P(StartUpFailures, EndOffLineWithTheStoredDevices) {
    std::string problem;
    ASSERT_TRUE(line.controller.addFault(GetParam().rule, problem)) << problem;
    platform.expectSelection(kStartMode, 0);
    for (const std::string& box : GetParam().boxes) {
        platform.expectBox(box);
    }
    expectDeviceChoice();
    Main();
    platform.checkAllAsked();
    EXPECT_EQ(platform.sent.size(), GetParam().sent);
    expectOffLine();
}

INSTANTIATE_TEST_SUITE_P(
    Table, StartUpFailures,
    testing::Values(FailureCase{"NoController", "*:*:silence", {kTimeout}, 1},
                    FailureCase{"Mode", "0CM02:1:silence", {kTimeout}, 1},
                    FailureCase{"Status", "0CM1:1:silence", {kTimeout}, 2},
                    FailureCase{"Identity", "0RV:*:silence", {kTimeout}, 8},
                    FailureCase{"OtherIdentity", "0RV:1:reply=0RV140030", {kNotK8}, 3},
                    FailureCase{"AxisMask", "0RD0:*:silence", {kTimeout}, 9},
                    FailureCase{"SecondDevice", "0RD8:*:silence", {kTimeout}, 11}),
    [](const auto& given) { return std::string(given.param.name); });

TEST_F(StartUp, AControllerOfTwoAxesIsRefused) {
    line.controller.setAxisCount(2);
    platform.expectSelection(kStartMode, 0);
    platform.expectBox(kNotK8);
    expectDeviceChoice();
    Main();
    expectOffLine();
}

TEST_F(StartUp, APortThatCanNotBeOpenedIsTriedSixTimes) {
    platform.failingOpens = -1;
    platform.expectSelection(kStartMode, 0);
    platform.expectBox(kPortBox);
    expectDeviceChoice();
    Main();
    EXPECT_EQ(std::count(platform.events.begin(), platform.events.end(), "open fails"), 6);
    EXPECT_TRUE(platform.sent.empty());
    expectOffLine();
}

TEST_F(StartUp, AnAxisWithoutALeadLeadsToTheStoredDevices) {
    line.controller.setBlock(8, std::string(32, '0'));
    platform.expectSelection(kStartMode, 0);
    expectDeviceChoice();
    Main();
    EXPECT_EQ(OffLineFlag, kSet);
    EXPECT_EQ(DevSetting[0].DevSize, " 44");
    EXPECT_EQ(DevSetting[1].DevLead, 2);
    expectUsable();
}

TEST_F(StartUp, AnAxisWithoutAModelLeadsOffLine) {
    // lead 2, 400 pulses, stroke end 20000, and no size, speed or stroke
    line.controller.setBlock(8, "0102019000004E20" + std::string(16, '0'));
    platform.expectSelection(kStartMode, 0);
    expectDeviceChoice([] {
        for (AxisDevice& device : DevSettei) {
            device.DevSize = " 44";
            device.DevSpeed = "L";
            device.DevStroke = 100;
        }
    });
    Main();
    EXPECT_EQ(OffLineFlag, kSet);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{}))
        << "the stored devices are not read on this way";
    EXPECT_EQ(DevSetting[1].MaxPulse, 20000);
    expectUsable();
}

TEST_F(StartUp, ALineLostBetweenTwoStepsEndsTheTalk) {
    Screens().frmTrance = [this] {
        if (TheTransferDialog().prgBar1 == 2 && platform.portOpen) {
            platform.breakLine();
        }
    };
    platform.expectSelection(kStartMode, 0); // and no box: nothing was asked of the dead line
    expectDeviceChoice();
    Main();
    EXPECT_FALSE(ThePanel().imgGreenLedOnline);
    EXPECT_EQ(platform.sent.back(), "0RV");
    EXPECT_EQ(OffLineFlag, kSet);
    EXPECT_EQ(DevSetting[0].DevSize, " 44");
    expectUsable();
}

TEST_F(StartUp, AnAxisThatNothingIsKnownOfStaysOutOfUse) {
    line.controller.setBlock(8, std::string(32, '0'));
    platform.settings["DevSize2"] = "4";
    platform.settings["DevLead2"] = "99";
    platform.expectSelection(kStartMode, 0);
    platform.expectBox(kReselect);
    expectDeviceChoice([] { AxisOff[1] = kSet; });
    Main();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kSet, kClear, kClear}));
    expectUsable();
}

TEST_F(StartUp, ACloseDuringAQueryLeavesTheCommandsAway) {
    startOnLine();
    line.controller.setTurnaround(200);
    platform.after(100, [this] {
        platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, BoxAnswer::Cancel);
        EXPECT_FALSE(frmMain_QueryUnload());
        PosiDirtyFlag = kSet;
        platform.expectBox("Data have been changed. Save the data into the file before finish?",
                           BoxButtons::YesNoCancel, BoxAnswer::Yes);
        platform.expectBox(kNoData);
        EXPECT_FALSE(frmMain_QueryUnload());
        EXPECT_FALSE(IsEnabled(Command::cmdPosiRead));
        platform.expectBox("The version of this controller is as follows.\r\n\r\n<MAIN>  "
                           "140\r\n\r\n<AXIS1>  121\r\n\r\n<AXIS2>  121\r\n\r\n<AXIS3>  "
                           "121\r\n\r\n<AXIS4>  121");
    });
    RunCommand(Command::mnuFuncCtversion);
    platform.checkAllAsked();
    expectUsable();
}

TEST_F(StartUp, AnAxisThatComesIntoUseBringsItsActuator) {
    line.controller.setAxisMask(0b0001);
    startOnLine();
    line.controller.setAxisMask(0b0101);
    platform.expectBox("Axis setting is 1,3.");
    RunCommand(Command::mnuFuncGetAxis);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kSet, kClear, kSet}));
    EXPECT_EQ(DevSetting[2].DevSize, "J52");
    EXPECT_EQ(DevSetting[2].MaxStrokeMm, 100);
}

TEST_F(StartUp, AnAxisKnownFromTheSettingsOnlyBringsItsActuatorToo) {
    line.controller.setAxisMask(0b0001);
    startOnLine();
    DevSetting[1] = {" 52", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 0.005, 0, 0};
    line.controller.setAxisMask(0b0011);
    platform.expectBox("Axis setting is 1,2.");
    RunCommand(Command::mnuFuncGetAxis);
    EXPECT_EQ(DevSetting[1].DevSize, " 44");
    EXPECT_EQ(DevSetting[1].MaxStrokeMm, 100);
}

TEST_F(StartUp, OffLineAsksTheSettings) {
    for (const std::int16_t answer : {std::int16_t{1}, kSelectionCancelled}) {
        platform.expectSelection(kStartMode, answer);
        expectDeviceChoice();
        Main();
        platform.checkAllAsked();
        EXPECT_TRUE(platform.sent.empty());
        expectOffLine();
        EXPECT_EQ(ThePanel().lblDeviceType[0], "");
        EXPECT_EQ(DevSetting[0].DevPPR, 400);
    }
}

TEST_F(StartUp, BadDeviceSettingsAreTold) {
    platform.settings["DevSize2"] = "4";
    platform.expectSelection(kStartMode, 1);
    platform.expectBox(kReselect);
    expectDeviceChoice();
    Main();
    expectUsable();
}

TEST_F(StartUp, OddSettingsAreTakenAsTheyMean) {
    platform.settings = {{"Language", "3"},
                         {"DispMmUnit", "0"},
                         {"MmRoundUp", "abc"},
                         {"PortNo", "99999"},
                         {"PortOccupy", "7"}};
    startOffLine();
    EXPECT_EQ(LanguageNo, 3);
    EXPECT_EQ(LanguageBase, 10000);
    EXPECT_EQ(DispMmFlag, kClear);
    EXPECT_EQ(MmRoundUpFlag, kClear);
    EXPECT_EQ(PortNo, 0);
    EXPECT_EQ(PortOccupyFlag, kSet);
}

TEST_F(StartUp, MissingListsAreToldAndTheProgramGoesOn) {
    const std::string empty = testing::TempDir() + "qdw8-no-lists";
    std::filesystem::create_directories(empty);
    ThePlatform().programFolder = empty;
    platform.expectBox(kNoErrorList);
    platform.expectSelection(kStartMode, 1);
    for (int axis = 0; axis < kAxes; ++axis) {
        platform.expectBox("No device list file."); // asked of each axis of the settings
    }
    platform.expectBox(kNoDeviceList);
    Main();
    EXPECT_EQ(ErrorListMissingFlag, kSet);
    expectUsable();
    std::filesystem::remove_all(empty);
}

TEST_F(StartUp, ABrokenErrorListIsToldInTheLanguageOfTheRun) {
    const std::string folder = testing::TempDir() + "qdw8-broken-list";
    std::filesystem::create_directories(folder);
    std::filesystem::copy(QDW8_DATA_DIR, folder,
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
    WriteWholeFile(folder + "/errorjpn.lst", "3,\"11\",\"one\"");
    ThePlatform().programFolder = folder;
    platform.settings["Language"] = "1";
    SelectionQuestion question;
    bool told = false;
    ThePlatform().ShowMessageBox = [&](const BoxQuestion& box) {
        told = box.text.find("エラーリスト") != std::string::npos ||
               box.text.find("アラームリスト") != std::string::npos;
        return BoxAnswer::Ok;
    };
    Screens().frmSelection = [&](const SelectionQuestion& asked) {
        if (!question.text.empty()) {
            return std::int16_t{0}; // what is fitted
        }
        question = asked;
        return std::int16_t{1};
    };
    Screens().frmDevice2 = [] {};
    Main();
    EXPECT_TRUE(told);
    EXPECT_EQ(LanguageBase, 0);
    EXPECT_NE(question.text, kStartMode.text);
    EXPECT_EQ(ErrorListMissingFlag, kSet);
    std::filesystem::remove_all(folder);
}

TEST_F(StartUp, ALowScreenIsWarnedOf) {
    platform.screen = {800, 600};
    platform.expectBox("Since the resolution of a screen is low, an error may occur while in "
                       "use.\r\nPlease use the resolution of a screen or more by 1024x768.");
    startOffLine();
    platform.screen = {801, 600};
    startOffLine();
}

TEST_F(StartUp, TheEndStoresPortAndLanguage) {
    startOffLine();
    platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, BoxAnswer::Cancel);
    EXPECT_FALSE(frmMain_QueryUnload());
    platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, BoxAnswer::Ok);
    EXPECT_TRUE(frmMain_QueryUnload());
    PortNo = 4;
    for (const auto& [now, next] : {std::pair{1, "2"}, {2, "1"}, {7, "1"}}) {
        LanguageNo = static_cast<std::int16_t>(now);
        LanguageChangedFlag = kSet;
        frmMain_Unload();
        EXPECT_EQ(platform.settings["Language"], next);
    }
    EXPECT_EQ(platform.settings["PortNo"], "4");
    EXPECT_TRUE(platform.ended);
}

TEST_F(StartUp, UnsavedChangesAreAskedForBeforeTheEnd) {
    startOffLine();
    PosiDirtyFlag = kSet;
    const std::string question =
        "Data have been changed. Save the data into the file before finish?";
    platform.expectBox(question, BoxButtons::YesNoCancel, BoxAnswer::Cancel);
    EXPECT_FALSE(frmMain_QueryUnload());
    platform.expectBox(question, BoxButtons::YesNoCancel, BoxAnswer::No);
    EXPECT_TRUE(frmMain_QueryUnload());
    platform.expectBox(question, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    platform.expectBox(kNoData);
    EXPECT_FALSE(frmMain_QueryUnload()) << "nothing was saved, so the window stays";
}

} // namespace
} // namespace qdw8::test
