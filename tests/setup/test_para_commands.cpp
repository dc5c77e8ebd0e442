#include "setup/para_commands.h"

#include "app/main_panel.h"
#include "device/axis_device.h"
#include "parameter/para_device.h"
#include "parameter/para_fields.h"
#include "parameter/parameter_fixture.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_table.h"
#include "position/position_reset.h"
#include "setup/controller_devices.h"

namespace qdw8::test {
namespace {

const std::string kSaveFirst = "Save the editing data before reading data?";
const std::string kNoAxis = "Failed to get Axis setting.";
const std::string kNoCompare = "Failed check of parameters.";
const std::string kUnmatched =
    "Axis setting by the side of PC and in side of controller unmatched.\r\nRead Axis setting "
    "inside of controller?";
const std::string kSend = "Send parameters to controller?";
const std::string kReflect = "Is a setting of AXIS and an DEVICE reflected in PC software?";
const std::string kDone = "Completed writing parameters.";
const std::string kNotWritten = "Fail to Write parameters.";
const std::string kMoving = "The writing of data is not made during movement.";

/// PC and controller agree on axes and actuators; the fields show what the controller holds.
class Commands : public ParameterLineTest {
protected:
    Commands() {
        GoOnLine();
        EXPECT_EQ(TakeOverDevicesOfController(), 0);
        EXPECT_EQ(GetParametaValue2(), 0);
        ParametaHyoji();
        inController = ParaSet;
        forgetFrames();
    }

    void expectAsk(const std::string& text, BoxAnswer answer) {
        platform.expectBox(text, BoxButtons::YesNo, answer);
    }
    void expectSaveFirst(BoxAnswer answer) {
        platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, answer);
    }
    void expectMaskChoice(std::int16_t answer) {
        platform.expectSelection({"Select",
                                  "There is a difference in AXIS setting between PC-Soft and "
                                  "controller. Which one do you want to use?",
                                  {"PC-Soft", "Controller"},
                                  false},
                                 answer);
    }
    void write() {
        cmdParaWrite_Click();
        platform.checkAllAsked();
        expectQuiet();
    }
    std::vector<std::string> words() const {
        std::vector<std::string> all;
        for (const std::string& frame : platform.sent) {
            all.push_back(frame.substr(0, frame.starts_with("0CM") ? 5 : 4));
        }
        return all;
    }

    ParameterSet inController;
};

const std::vector<std::string> kReadFrames = {"0RD0", "0RD1", "0RD2", "0RD3", "0RD4",
                                              "0RD5", "0RD6", "0RD7", "0RD8", "0RD9",
                                              "0RDA", "0RDB", "0RDC"};
const std::vector<std::string> kWriteFrames = {"0RD0", "0RA",  "0CM01", "0WD0", "0WD1", "0WD2",
                                               "0WD3", "0WD4", "0WD5",  "0WD6", "0WD7", "0WD8",
                                               "0WD9", "0WDA", "0WDB",  "0WDC", "0WE2", "0CM00"};

// ---- reading ----

TEST_F(Commands, ReadBringsEverythingIn) {
    ParaSet = ParameterSet{};
    ParaFields.txtHomePush[1] = "99";
    expectSaveFirst(BoxAnswer::No);
    EXPECT_EQ(GetParametaValue(), 0);
    std::vector<std::string> frames = {"0RD0", "0RD6", "0RD8", "0RDA", "0RDC"};
    frames.insert(frames.end(), kReadFrames.begin(), kReadFrames.end());
    EXPECT_EQ(words(), frames);
    EXPECT_EQ(ParaSet, inController);
    EXPECT_EQ(ParaFields.txtHomePush[1], "80");
    expectQuiet();
}

TEST_F(Commands, ReadOffersToSaveOnlyWhatIsFilled) {
    ParaFields.txtHomeVel[0].clear();
    EXPECT_EQ(GetParametaValue(), 0);

    forgetFrames();
    expectSaveFirst(BoxAnswer::Cancel);
    EXPECT_EQ(GetParametaValue(), 1);
    expectSaveFirst(BoxAnswer::Yes); // and then the saving is broken off
    platform.expectFile({FileQuestion::Kind::Save, "Save Parameters as ...",
                         "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*", "pmt", "qdw8prm1.pmt", "",
                         kOverwritePrompt},
                        std::nullopt);
    EXPECT_EQ(GetParametaValue(), 1);
    EXPECT_TRUE(platform.sent.empty());
}

TEST_F(Commands, ADeadLineAtAnyStepOfAReadLeavesTheSet) {
    // one for the axes, four to compare, thirteen to read
    for (int step = 1; step <= 18; ++step) {
        SCOPED_TRACE(step);
        forgetFrames();
        ParaSet = SampleSet();
        addFault("*:" + std::to_string(step) + "+:silence");
        expectSaveFirst(BoxAnswer::No);
        ParametaHyoji();
        platform.expectBox(kTimeout);
        platform.expectBox(step > 1 && step <= 5 ? kNoCompare : kNoAxis);
        EXPECT_EQ(GetParametaValue(), 1);
        platform.checkAllAsked();
        EXPECT_EQ(ParaSet, SampleSet());
        EXPECT_EQ(OffLineFlag, kSet);
        expectQuiet();
    }
    for (int step = 1; step <= 14; ++step) {
        forgetFrames();
        ParaSet = SampleSet();
        addFault("*:" + std::to_string(step) + "+:silence");
        platform.expectBox(kTimeout);
        platform.expectBox(kNoAxis);
        EXPECT_EQ(GetParametaValue2(), 1) << step;
        platform.checkAllAsked();
        EXPECT_EQ(ParaSet, SampleSet());
    }
}

TEST_F(Commands, APortThatDoesntOpenIsTold) {
    platform.failingOpens = -1;
    const auto shown = [this] {
        platform.expectBox("Failed Communication port open.\r\n\r\nPlease check a setting of a "
                           "communication port.");
        platform.expectBox(kNoAxis);
    };
    shown();
    EXPECT_EQ(GetParametaValue2(), 1);
    expectSaveFirst(BoxAnswer::No);
    shown();
    EXPECT_EQ(GetParametaValue(), 1);
    expectAsk(kSend, BoxAnswer::Yes);
    platform.expectBox(kCommError);
    write();
    EXPECT_TRUE(platform.sent.empty());
}

TEST_F(Commands, ReadTakesOtherAxesOver) {
    for (int mask = 0; mask < 16; ++mask) {
        SCOPED_TRACE(mask);
        line.controller.setAxisMask(static_cast<unsigned>(mask));
        ParaFields.txtOneAxis.clear(); // so that it doesn't offer to save
        EXPECT_EQ(GetParametaValue(), 0);
        EXPECT_EQ(AxisMaskOf(AxisOff), mask);
        EXPECT_EQ(ParaSet.AXIS, mask);
        EXPECT_EQ(ParaFields.txtOneAxis, std::to_string(mask));
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            EXPECT_EQ(ParaFields.txtHomeOffset[axis].empty(), (mask >> axis & 1) == 0);
        }
    }
}

TEST_F(Commands, AnotherActuatorIsPutToTheUser) {
    DevSetting[0].DevStroke = 100;
    ParaSet = SampleSet();
    expectSaveFirst(BoxAnswer::No);
    expectAsk(kUnmatched, BoxAnswer::No);
    EXPECT_EQ(GetParametaValue(), 1);
    EXPECT_EQ(DevSetting[0].DevStroke, 100);
    EXPECT_EQ(ParaSet, SampleSet());
    EXPECT_EQ(line.controller.count("0RD1"), 0);
    expectQuiet();

    expectSaveFirst(BoxAnswer::No);
    expectAsk(kUnmatched, BoxAnswer::Yes);
    EXPECT_EQ(GetParametaValue(), 0);
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    EXPECT_EQ(platform.settings["DevStroke1"], "300");
    EXPECT_EQ(ThePanel().lblDeviceType[0].substr(0, 11), "QD- 61H-300");
    EXPECT_EQ(ParaSet, inController);
}

TEST_F(Commands, AnActuatorThatCantBeTakenOverStopsTheRead) {
    line.controller.setBlock(6, "0108FFFF003A983D48012C0000000000");
    const auto before = DevSetting;
    expectSaveFirst(BoxAnswer::No);
    expectAsk(kUnmatched, BoxAnswer::Yes);
    platform.expectBox(kWrongData); // more pulses per revolution than a device can have
    platform.expectBox(kNoAxis);
    EXPECT_EQ(GetParametaValue(), 1);
    EXPECT_EQ(DevSetting, before);
}

TEST_F(Commands, AnAxisThatARefusedReadBroughtIntoUseIsCompleted) {
    AxisOff[3] = kSet;
    DevSetting[3] = DevSettei[3] = {};
    DevSetting[0].DevStroke = 250;
    ParaFields.txtOneAxis.clear(); // so that it doesn't offer to save
    expectAsk(kUnmatched, BoxAnswer::No);
    EXPECT_EQ(GetParametaValue(), 1);
    EXPECT_EQ(AxisMaskOf(AxisOff), 15);
    EXPECT_EQ(DevSetting[3].DevPPR, 192);
    EXPECT_EQ(DevSetting[3].Device, kSet);
    EXPECT_EQ(DevSetting[0].DevStroke, 250) << "the user refused";
    EXPECT_EQ(ThePanel().axisHeader[3].substr(0, 7), "AXIS 4:");
    expectQuiet();

    // Nor does a read leave an axis in use of which the controller knows nothing.
    AxisOff[3] = kSet;
    DevSetting[3] = DevSettei[3] = {};
    addFault("0RDC:1+:silence");
    platform.expectBox(kTimeout);
    platform.expectBox(kNoCompare);
    platform.expectBox(kNotSelected);
    EXPECT_EQ(GetParametaValue(), 1);
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0111);
    expectQuiet();
}

// ---- writing ----

TEST_F(Commands, WriteSendsTheFields) {
    ParaFields.txtHomePush[1] = "99";
    expectAsk(kSend, BoxAnswer::Yes);
    expectAsk(kReflect, BoxAnswer::No);
    platform.expectBox(kDone);
    write();
    EXPECT_EQ(words(), kWriteFrames);
    EXPECT_EQ(lasting()[7].substr(4, 2), "63");
}

TEST_F(Commands, WriteCanBeRefusedAtOnce) {
    expectAsk(kSend, BoxAnswer::No);
    write();
    EXPECT_TRUE(platform.sent.empty());
}

TEST_F(Commands, WhatWasWrittenCanBeReflected) {
    ParaFields.comboActStroke[0] = "250";
    ParaFields.txtAxisStroke[0] = "12500";
    ParaFields.comboPgFunc[1] = 2;
    expectAsk(kSend, BoxAnswer::Yes);
    ResetPositions();
    GridFirst = PosiFirst = GridLast = PosiLast = 1;
    GridRowCount = 1;
    QdDataHyoji_3();
    SetGridText(kGridHeadRows, kPosi + 1, "12501");
    expectAsk(kReflect, BoxAnswer::Yes);
    platform.expectScreen("frmSyogoKekka");
    platform.expectBox("Please check again the value of the position No which the error generated "
                       "by the check of a position data.");
    platform.expectBox(kDone);
    write();
    EXPECT_EQ(DevSetting[0].DevStroke, 250);
    EXPECT_EQ(platform.settings["DevStroke1"], "250");
    EXPECT_EQ(DevSetting[0].MaxPulse, 12500);
    EXPECT_DOUBLE_EQ(DevSetting[0].MaxStrokeMm, 250);
    EXPECT_EQ(DevSetting[1].WithPG, kSet);
    EXPECT_EQ(ThePanel().lblDeviceType[0].substr(0, 11), "QD- 61H-250");
}

TEST_F(Commands, ADeadLineAtAnyStepOfAWriteIsTold) {
    for (std::size_t step = 1; step <= kWriteFrames.size(); ++step) {
        SCOPED_TRACE(kWriteFrames[step - 1]);
        forgetFrames();
        const auto before = lasting();
        const std::string push = std::to_string(100 + step);
        ParaFields.txtHomePush[0] = push;
        addFault("*:" + std::to_string(step) + "+:deaf");
        expectAsk(kSend, BoxAnswer::Yes);
        if (step > 1) {
            platform.expectBox(kTimeout); // the comparison of the axes is quiet
        }
        const bool inBlocks = step >= 4 && step <= 17;
        if (inBlocks) {
            platform.expectBox(kTimeout); // leaving the writing mode
        }
        platform.expectBox(kCommError);
        if (inBlocks) {
            platform.expectBox(kNotWritten);
        }
        const bool written = step == kWriteFrames.size();
        if (written) {
            expectAsk(kReflect, BoxAnswer::No);
            platform.expectBox(kDone);
        }
        write();
        EXPECT_EQ(lasting() == before, !written);
        EXPECT_EQ(OffLineFlag, kSet);
    }
}

TEST_F(Commands, ADeadLineWhileReadingBackEndsWithoutASuccess) {
    for (int step = 19; step <= 32; ++step) {
        SCOPED_TRACE(step);
        forgetFrames();
        addFault("*:" + std::to_string(step) + "+:deaf");
        expectAsk(kSend, BoxAnswer::Yes);
        expectAsk(kReflect, BoxAnswer::Yes);
        platform.expectBox(kTimeout);
        platform.expectBox(kNoAxis);
        write();
    }
}

TEST_F(Commands, AWrongEchoEndsTheWriteInModeZero) {
    for (const char* rule : {"0WD:5:previous", "0WD:13:reply=0WD7", "0WE:1:reply=0WE1"}) {
        SCOPED_TRACE(rule);
        forgetFrames();
        addFault(rule);
        expectAsk(kSend, BoxAnswer::Yes);
        platform.expectBox(kWrongData);
        platform.expectBox(kNotWritten);
        write();
        EXPECT_EQ(platform.sent.back(), "0CM00");
        EXPECT_EQ(line.controller.machine().mode, 0);
    }
}

TEST_F(Commands, NothingIsWrittenDuringMovement) {
    addFault("0RA:1:reply=0RA0");
    expectAsk(kSend, BoxAnswer::Yes);
    platform.expectBox(kMoving);
    write();
    EXPECT_EQ(words(), (std::vector<std::string>{"0RD0", "0RA"}));
}

TEST_F(Commands, EmptyAndBadFieldsAreToldBeforeAnythingIsWritten) {
    ParaFields.txtHomeVel[3].clear();
    expectAsk(kSend, BoxAnswer::Yes);
    platform.expectBox(kNotFilled);
    write();
    for (const char* bad : {"0", "61", "32768"}) {
        ParaFields.txtHomeVel[3] = bad;
        expectAsk(kSend, BoxAnswer::Yes);
        platform.expectBox(kInvalid);
        write();
    }
    EXPECT_EQ(line.controller.count("0RA") + line.controller.count("0WD"), 0);
}

TEST_F(Commands, OtherAxesAreAChoice) {
    line.controller.setAxisMask(0b0111);
    expectAsk(kSend, BoxAnswer::Yes);
    expectMaskChoice(kSelectionCancelled);
    write();
    EXPECT_EQ(words(), std::vector<std::string>{"0RD0"});

    forgetFrames();
    ParaFields.txtOneAxis = "3";
    expectAsk(kSend, BoxAnswer::Yes);
    expectMaskChoice(0);
    expectAsk(kReflect, BoxAnswer::No);
    platform.expectBox(kDone);
    write();
    EXPECT_EQ(words()[1], "0RD0");
    EXPECT_EQ(words()[2], "0WD0");
    EXPECT_EQ(ParaFields.txtOneAxis, "15");
    EXPECT_EQ(lasting()[0].substr(12, 2), "0F");

    forgetFrames();
    line.controller.setAxisMask(0b0111);
    expectAsk(kSend, BoxAnswer::Yes);
    expectMaskChoice(1);
    expectAsk(kReflect, BoxAnswer::No);
    platform.expectBox(kDone);
    write();
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0111);
    EXPECT_EQ(ParaFields.txtOneAxis, "7");
    EXPECT_EQ(ParaFields.txtHomeOffset[3], "");
    EXPECT_EQ(line.controller.count("0WDC"), 0);
    EXPECT_EQ(lasting()[0].substr(12, 2), "07");
}

TEST_F(Commands, AnAxisThatAWriteBroughtIntoUseIsCompleted) {
    AxisOff[3] = kSet;
    DevSetting[3] = DevSettei[3] = {};
    expectAsk(kSend, BoxAnswer::Yes);
    expectMaskChoice(1);
    addFault("0RA:1:reply=0RA0");
    platform.expectBox(kMoving);
    write();
    EXPECT_EQ(AxisMaskOf(AxisOff), 15);
    EXPECT_EQ(DevSetting[3].DevPPR, 192);

    // Pulses that the parameters may hold and a device may not: told, and the axis goes again.
    AxisOff[3] = kSet;
    DevSetting[3] = DevSettei[3] = {};
    const auto before = DevSetting;
    ParaFields.txtAxisPulse[3] = "40000";
    expectAsk(kSend, BoxAnswer::Yes);
    expectMaskChoice(1);
    expectAsk(kReflect, BoxAnswer::Yes);
    platform.expectBox(kInvalid);
    platform.expectBox(kDone);
    platform.expectBox(kWrongData);
    platform.expectBox(kNotSelected);
    write();
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0111);
    EXPECT_EQ(DevSetting, before);
}

TEST_F(Commands, AChoiceOfAxesThatFailsEndsTheWrite) {
    for (const std::int16_t choice : {std::int16_t{0}, std::int16_t{1}}) {
        forgetFrames();
        line.controller.setAxisMask(0b0111);
        addFault("0RD0:2+:deaf");
        expectAsk(kSend, BoxAnswer::Yes);
        expectMaskChoice(choice);
        platform.expectBox(kTimeout);
        write();
        EXPECT_EQ(AxisMaskOf(AxisOff), 15);
        EXPECT_EQ(line.controller.count("0WD"), 0);
    }
}

TEST_F(Commands, ThePollIsHeldForTheLengthOfTheWrite) {
    // With a resettable alarm the supervision asks twice a second, but not inside a batch, not even
    // while a question stands.
    line.controller.setAxisMask(0b0111);
    Screens().frmSelection = [this](const SelectionQuestion&) {
        AlarmFlag = kSet;
        platform.run(1200);
        return kSelectionCancelled;
    };
    EnableTimer(Timer1);
    expectAsk(kSend, BoxAnswer::Yes);
    write();
    EXPECT_EQ(line.controller.count("0CM"), 0);
    platform.run(600);
    EXPECT_EQ(line.controller.count("0CM"), 1) << "and goes on behind it";
    DisableTimer(Timer1);
}

} // namespace
} // namespace qdw8::test
