#include "setup/device_write.h"

#include "link/Module3Tusin.h"
#include "parameter/factory_lists.h"
#include "position/posi_table.h"
#include "setup/device_bytes.h"
#include "setup/device_set.h"
#include "setup_fixture.h"

#include <filesystem>

namespace qdw8::test {
namespace {

const std::string kTimeout =
    "Communication timeout error!\r\n\r\nCheck the followings;\r\n\r\n 1.Power ON for "
    "controller?\r\n\r\n 2.Communication cables are connected?";
const std::string kNoAxis = "Failed to get Axis setting.";
const std::string kDone = "Completed writing parameters.";
const std::string kMoving = "The writing of data is not made during movement.";

/// The frames of a write of AXIS 1 and 2 by their beginnings, step by step.
const std::vector<std::vector<std::string>> kSteps = {
    {"0RA"},
    {"0CM01"},
    {"0RD0", "0WD0"},
    {"0RD0"},
    {"0RD0", "0RD1", "0RD2", "0RD5", "0RD6", "0RD7", "0RD8"},
    {"0WD5", "0WD6", "0WD7", "0WD8", "0WE2"},
    {"0CM00"},
    {"0RD0", "0RD0", "0RD1", "0RD2", "0RD5", "0RD6", "0RD7", "0RD8"},
};

class WriteTest : public SetupTest {
protected:
    WriteTest() : line(platform) {
        line.controller.setAxisMask(0b0001);
        OpenDevice3(form);
        ChangeStroke(form, 0, "300");
        ChangeSize(form, 1, "61");
        ChangeSpeed(form, 1, "F");
        ChangeStroke(form, 1, "450");
    }

    void fault(const std::string& rule) {
        std::string problem;
        ASSERT_TRUE(line.controller.addFault(rule, problem)) << problem;
    }
    /// Runs the command and checks what every way out leaves behind.
    void write() {
        std::vector<bool> shown;
        cmdPrmCtWrite_Click(form, [&] { shown.push_back(form.commandsEnabled); });
        platform.checkAllAsked();
        EXPECT_EQ(shown, (std::vector<bool>{false, true}));
        EXPECT_FALSE(TheTransferDialog().shown);
        EXPECT_EQ(CtBusyFlag, kClear);
        EXPECT_FALSE(platform.portOpen);
    }
    /// The frames, cut to what tells them apart.
    std::vector<std::string> words() const {
        std::vector<std::string> all;
        for (const std::string& frame : platform.sent) {
            all.push_back(frame.substr(0, frame.starts_with("0CM") ? 5 : 4));
        }
        return all;
    }
    const qdk8::Memory& lasting() const { return line.controller.machine().lasting; }

    SimulatedLine line;
    DeviceForm form;
};

std::vector<std::string> AllFrames() {
    std::vector<std::string> all;
    for (const auto& step : kSteps) {
        all.insert(all.end(), step.begin(), step.end());
    }
    return all;
}

TEST_F(WriteTest, WritesReadsBackAndTakesOver) {
    const qdk8::Memory before = lasting();
    OffLineFlag = kSet;
    std::vector<std::string> progress;
    Screens().frmTrance = [&] {
        const TransferDialog& dialog = TheTransferDialog();
        if (dialog.shown && dialog.prgBar1 == 0) {
            EXPECT_FALSE(dialog.cancelShown);
            progress.push_back(dialog.lblSetumei);
        }
    };
    platform.expectBox(kDone);
    write();
    EXPECT_EQ(words(), AllFrames());
    EXPECT_EQ(progress.size(), 3);
    EXPECT_EQ(OffLineFlag, kClear);
    EXPECT_TRUE(ThePanel().imgGreenLedOnline);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kClear, kSet, kSet}));
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    EXPECT_EQ(DevSetting[0].MaxPulse, 60000);
    EXPECT_EQ(DevSetting[1].DevSize, " 61");
    EXPECT_EQ(DevSetting[1].DevPPR, 192);
    EXPECT_EQ(DevSetting[1].NewType, kSet);
    EXPECT_EQ(ThePanel().lblDeviceType[1].substr(0, 11), "QD- 61F-450");
    EXPECT_EQ(ParaSet.AXIS, 0b0011);
    EXPECT_EQ(KeptAxisMask, 0b0011);

    line.controller.powerOff(platform.now);
    line.controller.powerOn(platform.now);
    EXPECT_EQ(qdk8::AxisMask(lasting()), 0b0011U) << "it outlives the power";
    EXPECT_EQ(CompareDeviceSettings(), 0);
    for (std::size_t block : {1U, 2U, 3U, 4U, 9U, 10U, 11U, 12U}) {
        EXPECT_EQ(lasting().blocks[block], before.blocks[block]) << block;
    }
    EXPECT_EQ(lasting().blocks[0].substr(14), before.blocks[0].substr(14));
}

TEST_F(WriteTest, AllMasks) {
    for (unsigned mask = 0; mask < 16; ++mask) {
        SCOPED_TRACE(mask);
        const qdk8::Memory before = lasting();
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const bool used = (mask >> axis & 1U) != 0;
            if (used != form.axes[axis].chkAxisEnable) {
                ChangeAxisEnable(form, axis, used);
            }
            // Something new in every round, so that what was written shows.
            if (used) {
                ChangeSize(form, axis, mask % 2 == 0 ? "52" : "44");
                ChangeStroke(form, axis, std::to_string(50 * (1 + (mask + axis) % 8)));
            }
        }
        platform.expectBox(kDone);
        write();
        EXPECT_EQ(qdk8::AxisMask(lasting()), mask);
        EXPECT_EQ(ParaSet.AXIS, static_cast<std::int16_t>(mask));
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const bool used = (mask >> axis & 1U) != 0;
            EXPECT_EQ(AxisOff[axis], FlagOf(!used));
            if (used) {
                EXPECT_EQ(DevSetting[axis].DevSize, mask % 2 == 0 ? " 52" : " 44");
                EXPECT_EQ(DevSetting[axis].DevStroke, 50 * (1 + (mask + axis) % 8));
                EXPECT_EQ(qdk8::StrokeEnd(lasting(), static_cast<int>(axis)),
                          DevSetting[axis].MaxPulse);
            } else {
                EXPECT_EQ(lasting().blocks[5 + 2 * axis], before.blocks[5 + 2 * axis]);
                EXPECT_EQ(lasting().blocks[6 + 2 * axis], before.blocks[6 + 2 * axis]);
            }
        }
        EXPECT_EQ(CompareDeviceSettings(), 0);
        CloseCtPortForce();
    }
}

/// What is told when a step fails for good.
std::vector<std::string> BoxesOf(std::size_t step, const std::string& exchange) {
    switch (step) {
    case 0:
    case 4:
    case 5: return {exchange};
    case 1:
    case 2:
    case 3: return {exchange, kCommError};
    case 6: return {exchange, kCommError, exchange, kNoAxis}; // it goes on without
    default: return {exchange, kNoAxis};
    }
}

TEST_F(WriteTest, ADeadLineAtEveryStep) {
    const auto setting = DevSetting;
    const auto settei = DevSettei;
    const auto off = AxisOff;
    ParaSet.SM_TIMER = 77;
    int frame = 0;
    for (std::size_t step = 0; step < kSteps.size(); ++step) {
        for (std::size_t i = 0; i < kSteps[step].size(); ++i) {
            ++frame;
            SCOPED_TRACE(frame);
            AxisOff = {kClear, kSet, kSet, kSet};
            DevSetting = setting;
            DevSettei = settei;
            ParaSet = {};
            ParaSet.SM_TIMER = 77;
            line.controller.clearFaults();
            fault("*:" + std::to_string(frame) + "+:deaf");
            for (const std::string& box : BoxesOf(step, kTimeout)) {
                platform.expectBox(box);
            }
            write();
            EXPECT_EQ(OffLineFlag, kSet);
            const bool maskWritten = step > 2;
            EXPECT_EQ(AxisOff[1], maskWritten ? kClear : kSet);
            const bool written = step > 5;
            EXPECT_EQ(ParaSet.SM_TIMER == 77, !written);
            EXPECT_EQ(DevSettei == settei, !written);
            EXPECT_EQ(DevSetting == setting, !written) << "what the controller holds is followed";
        }
    }
    AxisOff = off;
}

TEST_F(WriteTest, AnErrorReplyAtEveryStepLeavesTheControllerInModeZero) {
    const std::string error = "Communication error occurs!\r\nError No.3\r\n[Homing not completed]";
    const auto setting = DevSetting;
    int frame = 0;
    for (std::size_t step = 0; step < kSteps.size(); ++step) {
        for (std::size_t i = 0; i < kSteps[step].size(); ++i) {
            ++frame;
            SCOPED_TRACE(frame);
            line.controller.clearFaults();
            AxisOff = {kClear, kSet, kSet, kSet};
            DevSetting = setting;
            fault("*:" + std::to_string(frame) + ":error=03");
            const bool goesOn = step == 6; // the write itself is done by then
            for (const std::string& box : goesOn
                                              ? std::vector<std::string>{error, kCommError, kDone}
                                              : BoxesOf(step, error)) {
                platform.expectBox(box);
            }
            write();
            EXPECT_EQ(DevSetting == setting, step < 6);
            EXPECT_EQ(line.controller.machine().mode, goesOn ? 1 : 0);
        }
    }
}

TEST_F(WriteTest, AMovingControllerIsLeftAlone) {
    fault("0RA:*:reply=0RA0");
    platform.expectBox(kMoving);
    write();
    EXPECT_EQ(words(), std::vector<std::string>{"0RA"});
    EXPECT_EQ(DevSettei[0].DevStroke, 100);
}

TEST_F(WriteTest, AWrongEchoStopsTheWrite) {
    fault("0WD6:1:reply=0WD7");
    platform.expectBox("Communication error occurs!\r\ntransmit data is wrong");
    write();
    EXPECT_EQ(platform.sent.back(), "0CM00");
    EXPECT_EQ(line.controller.count("0WE"), 0) << "nothing is made lasting";
    EXPECT_EQ(DevSetting[0].DevStroke, 100);
}

TEST_F(WriteTest, AnAxisThatAStoppedWriteBroughtIntoUseIsCompleted) {
    ChangeAxisEnable(form, 3, true);
    ChangeSize(form, 3, "44");
    ChangeSpeed(form, 3, "L");
    ChangeStroke(form, 3, "123"); // no factory record
    platform.expectBox("Fail to open standard parameter file.");
    write();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kClear, kSet, kClear}));
    EXPECT_EQ(DevSetting[3].DevSize, " 61");
    EXPECT_EQ(DevSetting[3].DevPPR, 192);
    EXPECT_EQ(DevSetting[0].DevStroke, 100);
}

TEST_F(WriteTest, ADeviceWithoutARecordIsNotWritten) {
    ChangeStroke(form, 0, "123");
    const ParameterSet parameters = ParaSet;
    platform.expectBox("Fail to open standard parameter file.");
    write();
    EXPECT_EQ(line.controller.count("0WD"), 1) << "the mask alone";
    EXPECT_EQ(platform.sent.back(), "0CM00");
    EXPECT_EQ(ParaSet, parameters);
    EXPECT_EQ(DevSettei[0].DevStroke, 100);
    EXPECT_TRUE(form.commandsEnabled);
}

TEST_F(WriteTest, ABadFigureInAFactoryRecordIsNotWritten) {
    for (const char* list : {"nqddevice.lst", "w8cmstpr.lst"}) {
        std::filesystem::copy_file(std::string(QDW8_DATA_DIR) + "/" + list, pathOf(list));
    }
    writeFile("w8nqdstpr.lst", "\"QD-K8\",\"QD-STDPRM\"\r\n2,13\r\n"
                               "\" 44L-300\",200,70,8,5,3,1,60000,2,400,0,0,\" 44L300\"\r\n"
                               "\" 61F-450\",200,70,8,5,3,1,10800,8,192,15,0,\" 61F450\"\r\n");
    leaveListsBehind();
    platform.expectBox(kInvalid); // a JOG velocity of 0
    write();
    EXPECT_EQ(line.controller.count("0WD"), 1);
    EXPECT_EQ(platform.sent.back(), "0CM00");
}

TEST_F(WriteTest, ThePositionTableIsCheckedAgainstTheNewDevices) {
    showRows(1, 2);
    type(2, kPosi, "15000");
    ChangeSpeed(form, 1, "H");
    platform.expectBox(kDone);
    write();
    EXPECT_DOUBLE_EQ(PosiUnitTable[2].mm[0], 75);

    // This model has no acceleration 3, which stands in every row.
    ChangeStroke(form, 0, "50");
    ChangeSpeed(form, 1, "F");
    platform.expectScreen("frmSyogoKekka");
    platform.expectBox(kCheckAgain);
    platform.expectBox(kDone);
    write();
    EXPECT_EQ(DevSetting[0].DevStroke, 50) << "the change stands";
    EXPECT_EQ(DevSetting[1].DevSpeed, "F");
    EXPECT_EQ(cell(2, kPosi), "15000");
}

TEST_F(WriteTest, ThePollIsHeldAndTheWindowStaysWhileItRuns) {
    AlarmFlag = kSet;
    EnableTimer(Timer1);
    line.controller.setTurnaround(300);
    line.controller.setCommitTime(1500);
    platform.after(2000, [this] { EXPECT_FALSE(CancelDevice3(form)); });
    platform.expectBox(kDone);
    write();
    EXPECT_EQ(line.controller.count("0CM1"), 0);
    EXPECT_TRUE(CancelDevice3(form));
}

} // namespace
} // namespace qdw8::test
