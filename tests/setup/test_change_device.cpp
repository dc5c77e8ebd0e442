#include "setup/change_device.h"

#include "app/command_states.h"
#include "app/screens.h"
#include "device/Module2Calc.h"
#include "device/axis_texts.h"
#include "link/Module3Tusin.h"
#include "link/axis_mask.h"
#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "parameter/para_file.h"
#include "position/flex_grid.h"
#include "position/posi_file.h"
#include "position/posi_table.h"
#include "position/posi_transfer.h"
#include "setup/controller_devices.h"
#include "setup/detail_edit.h"
#include "setup/device_copies.h"
#include "setup/device_set.h"
#include "setup/posi_open.h"
#include "setup/repaint_axes.h"
#include "setup_fixture.h"

#include <filesystem>
#include <functional>

namespace qdw8::test {
namespace {

const std::string kNoFactory =
    "No standard parameter list file.\r\nPut standart parameter list file in the folder in which "
    "the program saved in order to indicate standard parameters correctly.";
const std::string kNoDevice = "Device type is not selected.\r\nPlease select device type again.";
const FileQuestion kFileDialog{FileQuestion::Kind::Open,
                               "Open Parameter file",
                               "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*",
                               "pmt",
                               "",
                               "",
                               kFileMustExist};

class ChangeTest : public SetupTest {
protected:
    ChangeTest() {
        Screens().frmDevice2 = [this] {
            ASSERT_FALSE(windows.empty()) << "a window that nobody expected";
            const auto script = windows.front();
            windows.erase(windows.begin());
            DeviceForm form;
            OpenDevice2(form);
            script(form);
        };
    }
    ~ChangeTest() override { EXPECT_TRUE(windows.empty()) << "a window that never came"; }

    void expectChoice(std::int16_t answer, bool mustAnswer = false) {
        platform.expectSelection({"Select",
                                  "Actuator Setting",
                                  {"The type of QD is selected, and the default parameter is read.",
                                   "The parameter file is opened."},
                                  mustAnswer},
                                 answer);
    }
    void expectWindow(std::function<void(DeviceForm&)> script) {
        windows.push_back(std::move(script));
    }
    /// The user chooses a stroke for AXIS 1.
    void expectStroke(const std::string& stroke) {
        expectChoice(0);
        expectWindow([stroke](DeviceForm& form) {
            ChangeStroke(form, 0, stroke);
            cmdDeviceSet2_Click(form);
        });
    }
    /// A parameter file of these devices, with AXIS 2 alone in use.
    std::string parameterFile(const std::string& name) const {
        const auto off = AxisOff;
        const auto settei = DevSettei;
        const ParameterSet set = ParaSet;
        AxisOff = {kSet, kClear, kSet, kSet};
        DevSettei[1] = {" 61", "H", 450, kSet, kSet, kSet, kSet, 0, 0, 0, 0, 0};
        EXPECT_EQ(LoadFactoryParameters(), 0);
        EXPECT_EQ(WriteParaFile(pathOf(name)), 0);
        AxisOff = off;
        DevSettei = settei;
        ParaSet = set;
        return pathOf(name);
    }

    std::vector<std::function<void(DeviceForm&)>> windows;
};

struct Everything {
    std::array<AxisDevice, kAxes> setting = DevSetting, settei = DevSettei;
    std::array<Flag, kAxes> off = AxisOff;
    std::array<std::string, kAxes> family = FamilyText;
    ParameterSet parameters = ParaSet;
    Flag offLine = OffLineFlag, onLine = OnLineFlag;
    std::array<std::string, kAxes> labels = ThePanel().lblDeviceType;

    bool operator==(const Everything&) const = default;
};

TEST_F(ChangeTest, ByTheCatalogue) {
    SetPanel(&MainPanel::imgGreenLedOnline, true);
    DevSetting[2].Device = kClear; // of another family when the program was last used
    expectChoice(0);
    expectWindow([](DeviceForm& form) {
        EXPECT_EQ(FactoryDeviceFlag, kSet);
        ChangeSize(form, 0, "61");
        ChangeSpeed(form, 0, "F");
        ChangeStroke(form, 0, "450");
        ChangeNewOrOld(form, 1, false);
        ChangeAxisEnable(form, 2, true);
        cmdDeviceSet2_Click(form);
    });
    platform.expectBox("A setting of AXIS is changed.\r\nIs a setting of AXIS changed?",
                       BoxButtons::YesNo, BoxAnswer::Yes);
    Change_Device();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kClear, kClear, kSet}));
    EXPECT_EQ(DevSetting[0].DevSize, " 61");
    EXPECT_EQ(DevSetting[0].DevLead, 8);
    EXPECT_EQ(DevSetting[0].DevPPR, 192);
    EXPECT_EQ(DevSetting[0].MaxPulse, 450 * 192 / 8);
    EXPECT_DOUBLE_EQ(DevSetting[0].MaxStrokeMm, 450);
    EXPECT_EQ(DevSetting[1].NewType, kSet) << "what the parameters don't tell";
    EXPECT_EQ(DevSetting[2].Device, kSet);
    EXPECT_EQ(ThePanel().lblDeviceType[0].substr(0, 11), "QD- 61F-450");
    EXPECT_EQ(ThePanel().lblDeviceType[2].substr(0, 11), "QD- 44L-100");
    EXPECT_EQ(platform.settings["DevSize1"], " 61");
    EXPECT_EQ(platform.settings["NewType2"], "1");
    EXPECT_EQ(platform.settings.count("DevSize4"), 0);
    EXPECT_EQ(ParaSet.AXIS, 0b0111);
    EXPECT_EQ(OffLineFlag, kSet);
    EXPECT_EQ(OnLineFlag, kSet);
    EXPECT_FALSE(ThePanel().imgGreenLedOnline);
    EXPECT_EQ(FactoryDeviceFlag, kClear);
    EXPECT_EQ(FirstDeviceSetFlag, kSet);
}

TEST_F(ChangeTest, OffLineTheFlagsStayAsTheyAre) {
    OffLineFlag = kSet;
    OnLineFlag = kClear;
    expectStroke("300");
    Change_Device();
    EXPECT_EQ(OnLineFlag, kClear);
}

TEST_F(ChangeTest, EveryWayThatComesToNothingLeadsBackToTheQuestion) {
    const std::string good = parameterFile("good.pmt");
    const std::string other = writeFile("other.pmt", "\"QD-K8\",\"POS\"\r\n1\r\n");
    ShowAxisDevices();
    const Everything before;

    expectChoice(0); // Cancel in the window
    expectWindow([](DeviceForm& form) {
        ChangeNewOrOld(form, 0, true);
        ChangeFamily(form, 1, kFamilyHn);
        EXPECT_TRUE(CancelDevice2(form));
    });
    expectChoice(1); // Cancel in the file dialog
    platform.expectFile(kFileDialog, std::nullopt);
    expectChoice(1); // a file of another kind, not tried again
    platform.expectFile(kFileDialog, FileAnswer{other, "other.pmt"});
    platform.expectBox("Not parameter file for QD-W8.\r\nOpening file is canceled.");
    expectChoice(1); // no such file, tried six times
    platform.expectFile(kFileDialog, FileAnswer{pathOf("none.pmt"), "none.pmt"});
    platform.expectBox("Fail to open parameter file.");
    expectChoice(0); // a device that has no factory record
    expectWindow([](DeviceForm& form) {
        ChangeStroke(form, 0, "123");
        ChangeAxisEnable(form, 1, false);
        cmdDeviceSet2_Click(form);
    });
    platform.expectBox("A setting of AXIS is changed.\r\nIs a setting of AXIS changed?",
                       BoxButtons::YesNo, BoxAnswer::Yes);
    platform.expectBox("Fail to open standard parameter file.");
    expectChoice(kSelectionCancelled);
    const std::int64_t start = platform.now;
    Change_Device();
    EXPECT_EQ(platform.now - start, 500) << "five pauses between the six tries";
    EXPECT_EQ(Everything(), before);
    EXPECT_EQ(DeviceCancelled, kClear);
    EXPECT_EQ(FactoryDeviceFlag, kClear);
    EXPECT_TRUE(platform.settings.empty());
}

TEST_F(ChangeTest, WithoutFactoryListsNothingChanges) {
    std::filesystem::copy_file(std::string(QDW8_DATA_DIR) + "/nqddevice.lst",
                               pathOf("nqddevice.lst"));
    leaveListsBehind();
    ShowAxisDevices();
    const Everything before;
    expectStroke("300");
    platform.expectBox(kNoFactory);
    platform.expectBox("Fail to open standard parameter file.");
    expectChoice(kSelectionCancelled);
    Change_Device();
    EXPECT_EQ(Everything(), before);
}

TEST_F(ChangeTest, ByAParameterFile) {
    const std::string path = parameterFile("good.pmt");
    expectChoice(1);
    platform.expectFile(kFileDialog, FileAnswer{path, "good.pmt"});
    Change_Device();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kSet, kClear, kSet, kSet}));
    EXPECT_EQ(DevSetting[1].DevSize, " 61");
    EXPECT_EQ(DevSetting[1].DevStroke, 450);
    EXPECT_EQ(DevSetting[1].NewType, kSet);
    EXPECT_EQ(DevSetting[0].DevStroke, 100) << "out of use now, and left alone";
    EXPECT_EQ(platform.settings["DevStroke2"], "450");
    EXPECT_EQ(OffLineFlag, kSet);
}

TEST_F(ChangeTest, ParametersWithoutAUsableActuatorChangeNothing) {
    ParaSet.AXIS = 0b0010;
    const Everything before;
    platform.expectBox(kNoDevice);
    EXPECT_EQ(TakeDevicesOfParaSet(), 1);
    EXPECT_EQ(Everything(), before);

    ParaSet.Actuator[1] = " 44L100";
    ParaSet.parts[1] = {" 44", "L", 100};
    ParaSet.PULSE[1] = 40000;
    const Everything wide;
    platform.expectBox(kInvalid);
    EXPECT_EQ(TakeDevicesOfParaSet(), 1);
    EXPECT_EQ(Everything(), wide);
}

TEST_F(ChangeTest, StartUpHasNoWayOut) {
    StartDeviceSelectFlag = kSet;
    AxisOff.fill(kSet);
    expectChoice(1, true);
    platform.expectFile(kFileDialog, std::nullopt);
    expectChoice(0, true);
    expectWindow([](DeviceForm& form) {
        EXPECT_FALSE(CancelDevice2(form));
        ChangeAxisEnable(form, 3, true);
        ChangeStroke(form, 3, "50");
        cmdDeviceSet2_Click(form);
    });
    platform.expectBox("A setting of AXIS is changed.\r\nIs a setting of AXIS changed?",
                       BoxButtons::YesNo, BoxAnswer::Yes);
    cmdChangeDev_Click();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kSet, kSet, kSet, kClear}));
    EXPECT_EQ(DevSetting[3].DevStroke, 50);
}

// ---- the position table ----

TEST_F(ChangeTest, InPulsesTheMillimetresFollow) {
    showRows(5, 7);
    type(6, kPosi, "6000");
    PosiFirst = PosiLast = 5; // left behind by a command on a part of the table
    expectChoice(0);
    expectWindow([](DeviceForm& form) {
        ChangeSize(form, 0, "61");
        ChangeSpeed(form, 0, "F");
        cmdDeviceSet2_Click(form);
    });
    // This model has no acceleration 3, which stands in every row.
    platform.expectScreen("frmSyogoKekka");
    platform.expectBox(kCheckAgain);
    Change_Device();
    EXPECT_EQ(DevSetting[0].DevLead, 8) << "the change stands";
    EXPECT_EQ(cell(6, kPosi), "6000");
    EXPECT_DOUBLE_EQ(PosiUnitTable[6].mm[0], 0) << "nothing is converted";

    for (int row = 5; row <= 7; ++row) {
        type(row, kAcc, "2");
    }
    expectStroke("200");
    Change_Device();
    EXPECT_DOUBLE_EQ(PosiUnitTable[6].pulse[0], 6000);
    EXPECT_DOUBLE_EQ(PosiUnitTable[6].mm[0], 250);
    EXPECT_EQ(PosiFirst, 5);
    EXPECT_EQ(PosiLast, 7);
}

TEST_F(ChangeTest, InMillimetresThePulsesFollow) {
    DispMmFlag = kSet;
    showRows(1, 2);
    type(2, kPosi, " 90.000");
    expectChoice(0);
    expectWindow([](DeviceForm& form) {
        ChangeSpeed(form, 0, "H");
        cmdDeviceSet2_Click(form);
    });
    Change_Device();
    EXPECT_DOUBLE_EQ(PosiUnitTable[2].mm[0], 90);
    EXPECT_DOUBLE_EQ(PosiUnitTable[2].pulse[0], 6000);
    EXPECT_EQ(cell(2, kPosi), " 90.000");
}

TEST_F(ChangeTest, AnAxisThatWentIsShownSo) {
    showRows(1, 1);
    const std::string path = parameterFile("good.pmt");
    expectChoice(1);
    platform.expectFile(kFileDialog, FileAnswer{path, "good.pmt"});
    Change_Device();
    EXPECT_EQ(ThePanel().axisHeader[0], "AXIS 1:************");
    EXPECT_EQ(flgdData().rows[kGridHeadRows].colour[1], CellColour::OffAxis);
}

// ---- the commands ----

TEST_F(ChangeTest, TheButtonIsAwayWhileItsCommandRuns) {
    SetBuilt(Command::cmdChangeDev);
    SetBuilt(Command::mnuEditLineCopy);
    CMDBTN_Yuko();
    for (void (*const command)() : {cmdChangeDev_Click, mnuSettingsDeviceOffline_Click}) {
        SetEnabled(Command::mnuEditLineCopy, true);
        EXPECT_TRUE(IsEnabled(Command::cmdChangeDev));
        expectChoice(0);
        expectWindow([](DeviceForm& form) {
            EXPECT_FALSE(IsEnabled(Command::cmdChangeDev));
            EXPECT_FALSE(IsEnabled(Command::mnuEditLineCopy));
            CancelDevice2(form);
        });
        expectChoice(kSelectionCancelled);
        command();
        EXPECT_TRUE(IsEnabled(Command::cmdChangeDev));
        EXPECT_FALSE(IsEnabled(Command::mnuEditLineCopy)) << "back with the next selection";
    }
}

TEST_F(ChangeTest, NothingIsPolledWhileAWindowStandsOpen) {
    AlarmFlag = kSet; // as long as one stands, the tick asks for it
    EnableTimer(Timer1);
    platform.answer("0CM1");
    platform.run(1000);
    ASSERT_EQ(platform.sent, std::vector<std::string>{"0CM1"});

    AlarmFlag = kSet;
    const auto wait = [this] {
        platform.run(5000);
        EXPECT_EQ(platform.sent.size(), 1);
    };
    Screens().frmDevice3 = wait;
    mnuSettingsDeviceOnline_Click();
    expectChoice(0);
    expectWindow([wait](DeviceForm& form) {
        wait();
        CancelDevice2(form);
    });
    expectChoice(kSelectionCancelled);
    Change_Device();
}

TEST_F(ChangeTest, WithoutAListTheOnlineWindowStaysAway) {
    int opened = 0;
    Screens().frmDevice3 = [&opened] { ++opened; };
    mnuSettingsDeviceOnline_Click();
    EXPECT_EQ(opened, 1);
    leaveListsBehind();
    platform.expectBox(kNoList);
    mnuSettingsDeviceOnline_Click();
    EXPECT_EQ(opened, 1);
    AxisOff.fill(kSet); // nobody misses it
    platform.expectBox(kNoList);
    mnuSettingsDeviceOnline_Click();
    EXPECT_EQ(opened, 2);
}

TEST_F(ChangeTest, DetailEditOpensTheParameterWindowOnceTheOtherHasGone) {
    EXPECT_FALSE(DetailEditPossible());
    int opened = 0;
    Screens().frmParameta2Show = [&opened] { ++opened; };
    EXPECT_TRUE(DetailEditPossible());
    DeviceForm form;
    OpenDevice3(form);
    ChangeStroke(form, 0, "300");
    cmdSyosai_Click(form);
    EXPECT_EQ(DevSettei[0].DevStroke, 300);
    platform.run(900);
    EXPECT_EQ(opened, 0);
    EXPECT_EQ(DetailEditFlag, kSet);
    platform.run(5000);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(DetailEditFlag, kClear);
}

// ---- a position file made for other devices ----

class FileStepsTest : public ChangeTest {
protected:
    FileStepsTest() {
        ShowAxisDevices();
        PosiFolder = folder;
        showRows(1, 2);
        EXPECT_EQ(SaveFileAs2("mine.qdd"), 0);
        LetDevSettingToDevSettei();
        DevSetting[0].DevStroke = 300;
        Culc_MaxPulse();
        CalcMaxStrokeMm();
        ShowAxisDevices();
    }

    void open(std::int16_t choice) {
        FileQuestion question;
        question.title = "Open position data";
        platform.expectFile(question, FileAnswer{pathOf("mine.qdd"), "mine.qdd"});
        platform.expectSelection(
            {"Select",
             "The actuator setting recorded in a positional data file and the pc-software is "
             "different. Which following processing is done?",
             {"Positional data is opened with the actuator setting of the pc-software now.",
              "After the default parameter of the actuator recorded in the file is read, position "
              "data is opened.",
              "After the parameter file is read, positional data is opened."},
             false},
            choice);
    }
};

TEST_F(FileStepsTest, TheThreeWays) {
    ThePlatform().CommonDialog1.ShowFile =
        [this, ask = ThePlatform().CommonDialog1.ShowFile](const FileQuestion& question) {
            FileQuestion plain; // its texts are the business of the command that opens it
            plain.title = "Open position data";
            return ask(question.defaultExt == "qdd" ? plain : question);
        };
    open(0);
    OpenPosiFile();
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    EXPECT_EQ(DevSettei[0].DevStroke, 300) << "the program's own counts";
    EXPECT_TRUE(platform.settings.empty());

    open(1);
    OpenPosiFile();
    EXPECT_EQ(DevSetting[0].DevStroke, 100);
    EXPECT_EQ(DevSetting[0].MaxPulse, 20000);
    EXPECT_EQ(DevSetting[1].NewType, kClear);
    EXPECT_EQ(platform.settings["DevStroke1"], "100");

    DevSetting[0].DevStroke = 300;
    const std::string path = parameterFile("good.pmt");
    open(2);
    platform.expectFile(kFileDialog, FileAnswer{path, "good.pmt"});
    OpenPosiFile();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kSet, kClear, kSet, kSet}));
    EXPECT_EQ(DevSetting[1].DevStroke, 450);
}

// What the list says of a model, what the controller holds and what a file's name tells agree.
TEST_F(ChangeTest, AFileSavedAfterAReadOpensAgainWithoutAQuestion) {
    SimulatedLine line(platform);
    ASSERT_EQ(ReadAxisMask(), 0);
    ASSERT_EQ(TakeOverDevicesOfController(), 0);
    RepaintAxes();
    showRows(1, 3);
    ASSERT_EQ(ReadPosidataFromCt(), LineResult::Done);
    PosiFolder = folder;
    ASSERT_EQ(SaveFileAs2("read.qdd"), 0);
    platform.expectFile({FileQuestion::Kind::Open, "Open Position Data file",
                         "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*", "qdd", "", "",
                         kFileMustExist},
                        FileAnswer{pathOf("read.qdd"), "read.qdd"});
    OpenPosiFile();
    EXPECT_EQ(PosiFileName, "read");
}

TEST(DeviceCopies, OnlyTheSharedFieldsOfAxesInUse) {
    ResetModule1();
    ResetDevices();
    AxisOff = {kClear, kSet, kClear, kSet};
    FileAxisOff = {kClear, kClear, kSet, kSet};
    DevSetting[0] = {" 44", "L", 100, kSet, kSet, kClear, kSet, 2, 400, 0.005, 20000, 100};
    DevSetting[2] = DevSetting[0];
    const AxisDevice other{"J52", "H", 50, kClear, kClear, kSet, kClear, 9, 9, 9, 9, 9};
    DevSettei.fill(other);

    ReflectFileDevice2PcDevice();
    EXPECT_EQ(AxisOff, FileAxisOff);
    const AxisDevice reflected{"J52", "H", 50,  kClear, kClear, kSet,
                               kSet,  2,   400, 0.005,  20000,  100};
    EXPECT_EQ(DevSetting[0], reflected) << "the figures come with the parameters";
    EXPECT_EQ(DevSetting[1].DevSize, "J52");
    EXPECT_EQ(DevSetting[2].DevSize, " 44") << "out of use in the file";
    EXPECT_EQ(CompareActuatorSettingOfPosifile2PC(), 0);

    // Each field counts, on an axis in use in the file and on no other.
    const std::vector<std::function<void(AxisDevice&)>> changes = {
        [](AxisDevice& device) { device.NewType = kSet; },
        [](AxisDevice& device) { device.DevSize = " 44"; },
        [](AxisDevice& device) { device.DevSpeed = "L"; },
        [](AxisDevice& device) { device.DevStroke = 51; },
        [](AxisDevice& device) { device.WithPG = kSet; },
        [](AxisDevice& device) { device.Vertical = kClear; },
    };
    for (const auto& change : changes) {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            DevSetting.fill(other);
            change(DevSetting[axis]);
            EXPECT_EQ(CompareActuatorSettingOfPosifile2PC(), axis < 2 ? 1 : 0);
        }
    }
    DevSetting.fill(other);
    DevSetting[0].MaxPulse = 1;
    EXPECT_EQ(CompareActuatorSettingOfPosifile2PC(), 0);

    DevSetting[1].DevStroke = 77;
    DevSetting[3].DevStroke = 77;
    LetDevSettingToDevSettei();
    EXPECT_EQ(DevSettei[1].DevStroke, 77);
    EXPECT_EQ(DevSettei[3].DevStroke, 50);
}

} // namespace
} // namespace qdw8::test
