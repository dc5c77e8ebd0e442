#include "setup/change_device.h"

#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/screens.h"
#include "device/axis_texts.h"
#include "link/axis_mask.h"
#include "link/line_state.h"
#include "link/supervision.h"
#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "parameter/para_file.h"
#include "platform/whole_file.h"
#include "position/posi_file.h"
#include "position/posi_transfer.h"
#include "setup/controller_devices.h"
#include "setup/detail_edit.h"
#include "setup/device_copies.h"
#include "setup/device_set.h"
#include "setup/posi_open.h"
#include "setup/repaint_axes.h"
#include "setup_bench.h"

#include <functional>

namespace qdw8::test {
namespace {

const FileQuestion kPositions{FileQuestion::Kind::Open,
                              "Open Position Data file",
                              "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*",
                              "qdd",
                              "",
                              "",
                              kFileMustExist};
const FileQuestion kParameters{FileQuestion::Kind::Open,
                               "Open Parameter file",
                               "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*",
                               "pmt",
                               "",
                               "",
                               kFileMustExist};

struct ChangeBench : SetupBench {
    ChangeBench() { RepaintAxes(); }
    void expectChoice(std::int16_t answer) {
        platform.expectSelection({"Select",
                                  "Actuator Setting",
                                  {"The type of QD is selected, and the default parameter is read.",
                                   "The parameter file is opened."},
                                  IsSet(StartDeviceSelectFlag)},
                                 answer);
    }
    /// The catalogue, and what the user does in its window.
    void expectWindow(const std::function<void(DeviceForm&)>& script) {
        expectChoice(0);
        platform.expectScreen("frmDevice2", [script] {
            DeviceForm form;
            OpenDevice2(form);
            script(form);
        });
    }
    void expectStroke(const std::string& stroke) {
        expectWindow([stroke](DeviceForm& form) {
            ChangeStroke(form, 0, stroke);
            cmdDeviceSet2_Click(form);
        });
    }
    void expectFile(const std::string& name) {
        expectChoice(1);
        platform.expectFile(kParameters, FileAnswer{pathOf(name), name});
    }
    /// A parameter file of AXIS 2 alone, a QD-61H of 450 mm.
    void writeParameters(const std::string& name) const {
        const Everything before;
        AxisOff = {kSet, kClear, kSet, kSet};
        DevSettei[1] = {" 61", "H", 450, kSet, kSet, kSet, kSet, 0, 0, 0, 0};
        EXPECT_EQ(LoadFactoryParameters(), 0);
        EXPECT_EQ(WriteParaFile(pathOf(name)), 0);
        AxisOff = before.off;
        DevSettei = before.settei;
        ParaSet = before.parameters;
    }
};
using ChangeTest = Unit<ChangeBench>;

TEST_F(ChangeTest, ByTheCatalogue) {
    SetPanel(&MainPanel::imgGreenLedOnline, true);
    OffLineFlag = kClear;
    DevSetting[2].Device = kClear; // of another family when the program was last used
    expectWindow([](DeviceForm& form) {
        EXPECT_EQ(FactoryDeviceFlag, kSet);
        ChangeSize(form, 0, "61");
        ChangeSpeed(form, 0, "F");
        ChangeStroke(form, 0, "450");
        ChangeNewOrOld(form, 1, false);
        ChangeAxisEnable(form, 2, true);
        cmdDeviceSet2_Click(form);
    });
    platform.expectBox(kOtherAxes, BoxButtons::YesNo, BoxAnswer::Yes);
    Change_Device();
    const AxisDevice expected{" 61", "F", 450, kSet, kSet, kSet, kSet, 8, 192, 10800, 450};
    EXPECT_EQ(DevSetting[0], expected);
    EXPECT_EQ(DevSetting[1].NewType, kSet) << "what the parameters don't tell";
    EXPECT_EQ(ThePanel().lblDeviceType[2].substr(0, 11), "QD- 44L-100");
    EXPECT_EQ(platform.settings["DevSize1"], " 61");
    EXPECT_EQ(platform.settings.count("DevSize4"), 0U);
    EXPECT_EQ(ParaSet.AXIS, 0b0111);
    EXPECT_EQ(OffLineFlag, kSet);
    EXPECT_EQ(OnLineFlag, kSet);
    EXPECT_FALSE(ThePanel().imgGreenLedOnline);
}

TEST_F(ChangeTest, EveryWayThatComesToNothingLeadsBackToTheQuestion) {
    writeFile("other.pmt", "\"QD-K8\",\"POS\"\r\n1\r\n");
    const Everything before;
    expectWindow([](DeviceForm& form) {
        ChangeNewOrOld(form, 0, true);
        ChangeFamily(form, 1, kFamilyHn);
        EXPECT_TRUE(CancelDevice2(form));
    });
    expectChoice(1); // Cancel in the file dialog
    platform.expectFile(kParameters, std::nullopt);
    expectFile("other.pmt");
    platform.expectBox("Not parameter file for QD-W8.\r\nOpening file is canceled.");
    expectFile("none.pmt");
    platform.expectBox("Fail to open parameter file.");
    expectWindow([](DeviceForm& form) { // a device that has no factory record
        ChangeStroke(form, 0, "123");
        ChangeAxisEnable(form, 1, false);
        cmdDeviceSet2_Click(form);
    });
    platform.expectBox(kOtherAxes, BoxButtons::YesNo, BoxAnswer::Yes);
    platform.expectBox(kNoFactory);
    expectChoice(kSelectionCancelled);
    Change_Device();
    EXPECT_EQ(platform.now, 500) << "five pauses between the six tries";
    EXPECT_EQ(Everything(), before);
    EXPECT_EQ(DeviceCancelled, kClear);
    EXPECT_EQ(FactoryDeviceFlag, kClear);
    EXPECT_TRUE(platform.settings.empty());
}

TEST_F(ChangeTest, ByAParameterFile) {
    writeParameters("good.pmt");
    showRows(1, 1);
    expectFile("good.pmt");
    Change_Device();
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0010);
    EXPECT_EQ(DevSetting[1].DevStroke, 450);
    EXPECT_EQ(DevSetting[0].DevStroke, 100) << "out of use now, and left alone";
    EXPECT_EQ(platform.settings["DevStroke2"], "450");
    EXPECT_EQ(ThePanel().axisHeader[0], "AXIS 1:************");
    EXPECT_EQ(flgdData().rows[kGridHeadRows].colour[1], CellColour::OffAxis);
}

TEST_F(ChangeTest, ParametersWithoutAUsableActuatorChangeNothing) {
    ParaSet.AXIS = 0b0010;
    const auto refused = [this](const std::string& text) {
        const Everything before;
        platform.expectBox(text);
        EXPECT_EQ(TakeDevicesOfParaSet(), 1);
        EXPECT_EQ(Everything(), before);
    };
    refused(box::kNotSelected);
    ParaSet.Actuator[1] = " 44L100";
    ParaSet.parts[1] = {" 44", "L", 100};
    ParaSet.LEAD[1] = 2;
    ParaSet.PULSE[1] = 40000;
    refused(box::kInvalid);
}

TEST_F(ChangeTest, StartUpHasNoWayOutButTheEndOfTheProgram) {
    StartDeviceSelectFlag = kSet;
    expectChoice(1);
    platform.expectFile(kParameters, std::nullopt);
    expectWindow([this](DeviceForm& form) {
        platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, BoxAnswer::Ok);
        EXPECT_TRUE(CancelDevice2(form));
    });
    cmdChangeDev_Click();
    EXPECT_EQ(ProgramEndFlag, kSet);
}

// The mm of a position are worked out from its pulses in the pulse view, and the other way round in
// the mm view.
TEST_F(ChangeTest, ThePositionsFollowTheUnitThatIsShown) {
    showRows(5, 7);
    type(6, kPosi, "6000");
    PosiFirst = PosiLast = 5; // left behind by a command on a part of the table
    expectWindow([](DeviceForm& form) {
        ChangeSize(form, 0, "61");
        ChangeSpeed(form, 0, "F");
        cmdDeviceSet2_Click(form);
    });
    platform.expectScreen("frmSyogoKekka"); // this model has no acceleration 3
    platform.expectBox(box::kCheckAgain);
    Change_Device();
    EXPECT_EQ(DevSetting[0].DevLead, 8) << "the change stands";
    EXPECT_DOUBLE_EQ(PosiUnitTable[6].mm[0], 0) << "nothing is converted";
    for (int row = 5; row <= 7; ++row) {
        type(row, kAcc, "2");
    }
    expectStroke("300");
    Change_Device();
    EXPECT_EQ(cell(6, kPosi), "6000");
    EXPECT_DOUBLE_EQ(PosiUnitTable[6].mm[0], 250);
    EXPECT_EQ(PosiLast, 7);

    DispMmFlag = kSet;
    QdDataHyoji_3();
    type(6, kPosi, " 90.000");
    expectWindow([](DeviceForm& form) {
        ChangeSpeed(form, 0, "L");
        cmdDeviceSet2_Click(form);
    });
    Change_Device();
    EXPECT_DOUBLE_EQ(PosiUnitTable[6].mm[0], 90);
    EXPECT_DOUBLE_EQ(PosiUnitTable[6].pulse[0], 18000);
    EXPECT_EQ(cell(6, kPosi), " 90.000");
}

// ---- the commands ----

TEST_F(ChangeTest, TheButtonIsAwayAndNothingIsPolledWhileItsCommandRuns) {
    SetBuilt(Command::cmdChangeDev);
    CMDBTN_Yuko();
    const auto wait = [this] {
        AlarmFlag = kSet; // as long as one stands, the tick asks for it
        EnableTimer(Timer1);
        platform.run(2000);
        EXPECT_TRUE(platform.sent.empty());
    };
    expectWindow([&](DeviceForm& form) {
        EXPECT_FALSE(IsEnabled(Command::cmdChangeDev));
        wait();
        CancelDevice2(form);
    });
    expectChoice(kSelectionCancelled);
    mnuSettingsDeviceOffline_Click();
    EXPECT_TRUE(IsEnabled(Command::cmdChangeDev));
    platform.expectScreen("frmDevice3", wait);
    mnuSettingsDeviceOnline_Click();
    leaveListsBehind();
    platform.expectBox(box::kNoDeviceList);
    mnuSettingsDeviceOnline_Click();
    AxisOff.fill(kSet); // nobody misses it
    platform.expectBox(box::kNoDeviceList);
    platform.expectScreen("frmDevice3");
    mnuSettingsDeviceOnline_Click();
}

TEST_F(ChangeTest, DetailEditOpensTheParameterWindowOnceTheOtherHasGone) {
    EXPECT_FALSE(DetailEditPossible());
    int opened = 0;
    Screens().frmParameta2Show = [&opened] { ++opened; };
    DeviceForm form;
    OpenDevice3(form);
    ChangeStroke(form, 0, "300");
    cmdSyosai_Click(form);
    EXPECT_EQ(DevSettei[0].DevStroke, 300);
    {
        const CommandsAway away; // no window on top of a command's dialogs
        platform.run(3500);
        EXPECT_EQ(opened, 0);
    }
    platform.run(5000);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(DetailEditFlag, kClear);
}

// ---- a position file made for other devices ----

TEST_F(ChangeTest, AFileForOtherDevicesShowsWhichAndOpensInThreeWays) {
    PosiFolder = folder;
    showRows(1, 2);
    ASSERT_EQ(SaveFileAs2("mine.qdd"), 0);
    writeParameters("good.pmt");
    const auto open = [this](std::int16_t choice) {
        DevSetting[2] = DevSetting[0];
        DevSetting[2].DevStroke = 100;
        DevSetting[0].DevStroke = 300;
        DevSetting[1].WithPG = kClear;
        AxisOff = {kClear, kClear, kClear, kSet};
        RepaintAxes();
        platform.expectFile(kPositions, FileAnswer{pathOf("mine.qdd"), "mine.qdd"});
        const auto asked = Screens().frmSelection;
        Screens().frmSelection = [choice](const SelectionQuestion& question) {
            EXPECT_EQ(question.details,
                      (std::vector<std::string>{
                          "AXIS 1:  program QD-44L-300(New),  file QD-44L-100(New)",
                          "AXIS 2:  program QD-52H-200(Old),  file QD-52H-200E(Old)",
                          "AXIS 3:  program QD-44L-100(New),  file not in use"}));
            return choice;
        };
        if (choice == 2) {
            platform.expectFile(kParameters, FileAnswer{pathOf("good.pmt"), "good.pmt"});
        }
        OpenPosiFile();
        Screens().frmSelection = asked;
    };
    open(0);
    EXPECT_EQ(DevSettei[0].DevStroke, 300) << "the program's own counts";
    open(1);
    EXPECT_EQ(DevSetting[0].DevStroke, 100);
    EXPECT_EQ(DevSetting[0].MaxPulse, 20000);
    EXPECT_EQ(platform.settings["DevStroke1"], "100");
    open(2);
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0010);
    EXPECT_EQ(DevSetting[1].DevStroke, 450);

    AxisOff = {kClear, kClear, kSet, kSet};
    ParaSet.SM_TIMER = 77;
    std::string bad = ReadWholeFile(pathOf("good.pmt"));
    writeFile("bad.pmt", bad.replace(bad.find(" 61H450"), 7, "")); // names no device
    const Everything before;
    platform.expectFile(kPositions, FileAnswer{pathOf("mine.qdd"), "mine.qdd"});
    Screens().frmSelection = [](const SelectionQuestion&) { return std::int16_t{2}; };
    platform.expectFile(kParameters, FileAnswer{pathOf("bad.pmt"), "bad.pmt"});
    platform.expectBox(box::kNotSelected);
    OpenPosiFile();
    EXPECT_EQ(Everything(), before) << "the parameters too";
}

// What the list says of a model, what the controller holds and what a file's name tells agree.
TEST_F(ChangeTest, AFileSavedAfterAReadOpensAgainWithoutAQuestion) {
    ASSERT_EQ(ReadAxisMask(), 0);
    ASSERT_EQ(TakeOverDevicesOfController(), 0);
    showRows(1, 3);
    ASSERT_EQ(ReadPosidataFromCt(), LineResult::Done);
    PosiFolder = folder;
    ASSERT_EQ(SaveFileAs2("read.qdd"), 0);
    platform.expectFile(kPositions, FileAnswer{pathOf("read.qdd"), "read.qdd"});
    OpenPosiFile();
    EXPECT_EQ(PosiFileName, "read");
}

TEST_F(ChangeTest, CopiesTouchTheSharedFieldsOfAxesInUse) {
    AxisOff = {kClear, kSet, kClear, kSet};
    FileAxisOff = {kClear, kClear, kSet, kSet};
    DevSetting[0] = DevSetting[2] = {" 44", "L", 100, kSet, kSet, kClear, kSet, 2, 400, 20000, 100};
    const AxisDevice other{"J52", "H", 50, kClear, kClear, kSet, kClear, 9, 9, 9, 9};
    DevSettei.fill(other);
    ReflectFileDevice2PcDevice();
    EXPECT_EQ(AxisOff, FileAxisOff);
    const AxisDevice reflected{"J52", "H", 50, kClear, kClear, kSet, kSet, 2, 400, 20000, 100};
    EXPECT_EQ(DevSetting[0], reflected) << "the figures come with the parameters";
    EXPECT_EQ(DevSetting[2].DevSize, " 44") << "out of use in the file";
    const std::vector<std::function<void(AxisDevice&)>> changes = {
        [](AxisDevice& device) { device.NewType = kSet; },
        [](AxisDevice& device) { device.DevSize = " 44"; },
        [](AxisDevice& device) { device.DevSpeed = "L"; },
        [](AxisDevice& device) { device.DevStroke = 51; },
        [](AxisDevice& device) { device.WithPG = kSet; },
        [](AxisDevice& device) { device.Vertical = kClear; },
        [](AxisDevice&) {},
        [](AxisDevice& device) { device.MaxPulse = 1; },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        DevSetting.fill(other);
        changes[i](DevSetting[i % 2]); // in use in the file
        EXPECT_EQ(CompareActuatorSettingOfPosifile2PC(), i < 6 ? 1 : 0) << i;
        changes[i](DevSetting[2]);
        DevSetting[i % 2] = other;
        EXPECT_EQ(CompareActuatorSettingOfPosifile2PC(), 0);
    }
    DevSetting[1].DevStroke = DevSetting[3].DevStroke = 77;
    LetDevSettingToDevSettei();
    EXPECT_EQ(DevSettei[1].DevStroke, 77);
    EXPECT_EQ(DevSettei[3].DevStroke, 50);
}

} // namespace
} // namespace qdw8::test
