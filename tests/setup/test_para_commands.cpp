#include "setup/para_commands.h"

#include "app/main_panel.h"
#include "link/alarm.h"
#include "link/line_state.h"
#include "link/receiver.h"
#include "link/supervision.h"
#include "parameter/para_fields.h"
#include "parameter/sample_sets.h"
#include "setup/controller_devices.h"
#include "setup_bench.h"
#include "support/every_step.h"

#include <algorithm>

namespace qdw8::test {
namespace {

const std::string kSaveFirst = "Save the editing data before reading data?";
const std::string kUnmatched =
    "Axis setting by the side of PC and in side of controller unmatched.\r\nRead Axis setting "
    "inside of controller?";
const std::string kSend = "Send parameters to controller?";
const std::string kNotWritten = "Fail to Write parameters.";
const std::string kReflect = "Is a setting of AXIS and an DEVICE reflected in PC software?";

/// PC and controller agree on axes and actuators; the fields show what the controller holds.
struct ParaBench : SetupBench {
    ParaBench() {
        AxisOff.fill(kClear);
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
    std::int16_t read() {
        ParaFields.txtOneAxis.clear(); // so that it doesn't offer to save
        const std::int16_t done = GetParametaValue();
        platform.checkAllAsked();
        return done;
    }
    void write() {
        cmdParaWrite_Click();
        platform.checkAllAsked();
    }
    const qdk8::Memory& lasting() const { return line.controller.machine().lasting; }

    ParameterSet inController;
    std::int16_t result = 0;
};
using ParaCommands = Unit<ParaBench>;

TEST_F(ParaCommands, ReadOffersToSaveOnlyWhatIsFilled) {
    ParaFields.txtHomePush[1] = "99";
    platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::No);
    EXPECT_EQ(GetParametaValue(), 0);
    EXPECT_EQ(ParaFields.txtHomePush[1], "80");
    ParaFields.txtHomeVel[0].clear();
    EXPECT_EQ(GetParametaValue(), 0);
    forgetFrames();
    platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::Cancel);
    EXPECT_EQ(GetParametaValue(), 1);
    platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    platform.expectFile({FileQuestion::Kind::Save, "Save Parameters as ...",
                         "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*", "pmt", "qdw8prm1.pmt", "",
                         kOverwritePrompt},
                        std::nullopt); // the saving is broken off
    EXPECT_EQ(GetParametaValue(), 1);
    EXPECT_TRUE(platform.sent.empty());
}

TEST(ParaRead, EveryStep) {
    for (auto* const command : {GetParametaValue, GetParametaValue2}) {
        EveryStep<ParaBench>(
            [command](ParaBench& bench) {
                ParaSet = SampleSet();
                bench.result = command();
            },
            [command](ParaBench& bench, const Step& step) {
                EXPECT_EQ(ParaSet, bench.result == 0 ? bench.inController : SampleSet());
                EXPECT_EQ(bench.result, step.fault.empty() ? 0 : step.dead() ? 1 : bench.result);
                if (bench.result != 0) {
                    EXPECT_TRUE(step.boxes.back() == box::kNoAxis ||
                                step.boxes.back() == "Failed check of parameters.");
                }
            },
            {"dead", "error=03", "short"});
    }
}

TEST_F(ParaCommands, ReadTakesOtherAxesOver) {
    for (const int mask : {0, 5, 10, 15}) {
        line.controller.setAxisMask(static_cast<unsigned>(mask));
        EXPECT_EQ(read(), 0);
        EXPECT_EQ(AxisMaskOf(AxisOff), mask);
        EXPECT_EQ(ParaSet.AXIS, mask);
        EXPECT_EQ(ParaFields.txtOneAxis, std::to_string(mask));
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            EXPECT_EQ(ParaFields.txtHomeOffset[axis].empty(), (mask >> axis & 1) == 0);
        }
    }
}

TEST_F(ParaCommands, AnotherActuatorIsPutToTheUser) {
    DevSetting[0].DevLead = 4;
    showRows(1, 1);
    type(1, kPosi, "15000");
    type(1, kAxisColumns * 3 + kAcc, "3"); // one more than the QD-61F has
    expectAsk(kUnmatched, BoxAnswer::No);
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(DevSetting[0].DevLead, 4);
    EXPECT_EQ(line.controller.count("0RD1"), 0);
    expectAsk(kUnmatched, BoxAnswer::Yes);
    platform.expectScreen("frmSyogoKekka");
    platform.expectBox(box::kCheckAgain);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(DevSetting[0].DevLead, 8);
    EXPECT_EQ(platform.settings["DevStroke1"], "300");
    EXPECT_EQ(ThePanel().lblDeviceType[0].substr(0, 11), "QD- 61H-300");
    type(1, kAxisColumns * 3 + kAcc, "2");
    DevSetting[0].DevLead = 4;
    expectAsk(kUnmatched, BoxAnswer::Yes);
    EXPECT_EQ(read(), 0);
    EXPECT_DOUBLE_EQ(PosiUnitTable[1].mm[0], 300) << "worked out with the lead that came";
}

TEST_F(ParaCommands, ARefusedReadBringsNoAxisIntoUse) {
    AxisOff[3] = kSet;
    DevSetting[3] = DevSettei[3] = {};
    DevSetting[0].DevStroke = 250;
    line.controller.setAxisMask(0b1101);
    expectAsk(kUnmatched, BoxAnswer::No);
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0101);
    EXPECT_EQ(ParaFields.txtHomeOffset[3], "");
    EXPECT_EQ(ThePanel().axisHeader[3], "AXIS 4:************");
    EXPECT_EQ(std::count(platform.sent.begin(), platform.sent.end(), "0RDC"), 1) << "compared only";
}

TEST_F(ParaCommands, AnActuatorBeyondTheLimitsIsNotTakenOver) {
    const Everything before;
    for (const char* block :
         {"0108FFFF003A983D48012C0000000000", "01080190000400003D48012C00000000",
          "01080190003A98003D4801F500000000"}) {
        line.controller.setBlock(6, block);
        expectAsk(kUnmatched, BoxAnswer::Yes);
        platform.expectBox(box::kWrongData);
        platform.expectBox(box::kNoAxis);
        EXPECT_EQ(read(), 1);
        EXPECT_EQ(Everything(), before) << block;
    }
    line.controller.setBlock(6,
                             "0102019000003A982C00012C00000000"); // its lead is good, its model not
    expectAsk(kUnmatched, BoxAnswer::Yes);
    platform.expectBox(box::kNoAxis);
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(Everything(), before) << "half a device is none";
}

// ---- writing ----

TEST_F(ParaCommands, WriteSendsTheFieldsAndReflectsThem) {
    ParaFields.txtHomePush[1] = "99";
    ParaFields.comboActStroke[0] = "250";
    ParaFields.txtAxisStroke[0] = "12500";
    ParaFields.comboPgFunc[1] = 2;
    showRows(1, 1);
    type(1, kAxisColumns * 3 + kAcc, "3"); // one more than the QD-61F has
    expectAsk(kSend, BoxAnswer::Yes);
    expectAsk(kReflect, BoxAnswer::No);
    platform.expectBox(box::kWritten);
    write();
    EXPECT_EQ(platform.sent[1], "0RA");
    EXPECT_EQ(platform.sent[2], "0CM01");
    EXPECT_EQ(platform.sent.back(), "0CM00");
    EXPECT_EQ(lasting().blocks[7].substr(4, 2), "63");
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    expectAsk(kSend, BoxAnswer::Yes);
    expectAsk(kReflect, BoxAnswer::Yes);
    platform.expectScreen("frmSyogoKekka");
    platform.expectBox(box::kCheckAgain);
    platform.expectBox(box::kWritten);
    write();
    EXPECT_EQ(DevSetting[0].DevStroke, 250);
    EXPECT_EQ(platform.settings["DevStroke1"], "250");
    EXPECT_EQ(DevSetting[0].MaxPulse, 12500);
    EXPECT_DOUBLE_EQ(DevSetting[0].MaxStrokeMm, 250);
    EXPECT_EQ(DevSetting[1].WithPG, kSet);
    expectAsk(kSend, BoxAnswer::No);
    const std::size_t sent = platform.sent.size();
    write();
    EXPECT_EQ(platform.sent.size(), sent);
}

TEST(ParaWrite, EveryStep) {
    EveryStep<ParaBench>(
        [](ParaBench&) {
            ParaFields.txtHomePush[0] = "99";
            cmdParaWrite_Click();
        },
        [](ParaBench& bench, const Step& step) {
            const auto told = [&step](const std::string& text) {
                return std::count(step.boxes.begin(), step.boxes.end(), text);
            };
            const bool lasting = bench.lasting().blocks[5].substr(4, 2) == "63";
            const bool modeAsked = step.frame == "0CM00" || step.frame == "0CM01";
            const bool inWrites = step.frame.starts_with("0WD") || step.frame == "0WE2";
            EXPECT_EQ(told(kReflect), lasting && told(kNotWritten) == 0 ? 1 : 0);
            EXPECT_EQ(told(kNotWritten), inWrites ? 1 : 0);
            EXPECT_LE(told(box::kTimeout) + told(box::kPort), step.frame == "0CM00" ? 2 : 1)
                << "a line that no longer answers is not asked again";
            if (LineAnswers() && !modeAsked) {
                EXPECT_EQ(bench.line.controller.machine().mode, 0);
            }
            EXPECT_LE(told(box::kWritten), 1 - told(kNotWritten));
            EXPECT_EQ(told(box::kWritten), step.fault.empty() ? 1 : told(box::kWritten));
        },
        {"dead", "error=03", "echo=0ZZ", "previous"});
}

TEST_F(ParaCommands, EmptyAndBadFieldsAndMovementStopTheWrite) {
    ParaFields.txtHomeVel[3].clear();
    expectAsk(kSend, BoxAnswer::Yes);
    platform.expectBox(box::kNotFilled);
    write();
    for (const char* bad : {"0", "61", "32768"}) {
        ParaFields.txtHomeVel[3] = bad;
        expectAsk(kSend, BoxAnswer::Yes);
        platform.expectBox(box::kInvalid);
        write();
    }
    ParaFields.txtHomeVel[3] = "60";
    addFault("0RA:1:reply=0RA0");
    expectAsk(kSend, BoxAnswer::Yes);
    platform.expectBox(box::kMoving);
    write();
    EXPECT_EQ(line.controller.count("0WD") + line.controller.count("0CM"), 0);
}

TEST_F(ParaCommands, OtherAxesAreAChoice) {
    const auto choose = [this](std::int16_t answer) {
        forgetFrames();
        line.controller.setAxisMask(0b0111);
        expectAsk(kSend, BoxAnswer::Yes);
        platform.expectSelection({"Select",
                                  "There is a difference in AXIS setting between PC-Soft and "
                                  "controller. Which one do you want to use?",
                                  {"PC-Soft", "Controller"}},
                                 answer);
    };
    AlarmFlag = kSet; // the poll would ask
    EnableTimer(Timer1);
    platform.after(200, [this] { platform.run(1200); });
    choose(kSelectionCancelled);
    write();
    EXPECT_EQ(platform.sent, std::vector<std::string>{"0RD0"});
    DisableTimer(Timer1);

    for (const std::size_t at : {0U, 11U, 14U, 31U}) { // goes back unread
        choose(0);
        std::string digits(32, '0');
        digits[at] = 'G';
        addFault("0RD0:2:reply=0RD0" + digits);
        platform.expectBox(box::kWrongData);
        write();
    }
    EXPECT_EQ(line.controller.count("0WD"), 0);

    choose(0);
    ParaFields.txtOneAxis = "3";
    expectAsk(kReflect, BoxAnswer::No);
    platform.expectBox(box::kWritten);
    write();
    EXPECT_EQ(ParaFields.txtOneAxis, "15");
    EXPECT_EQ(qdk8::AxisMask(lasting()), 15U);

    choose(1);
    expectAsk(kReflect, BoxAnswer::No);
    platform.expectBox(box::kWritten);
    write();
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0111);
    EXPECT_EQ(ParaFields.txtHomeOffset[3], "");
    EXPECT_EQ(line.controller.count("0WDC"), 0);
}

// Pulses that the parameters may hold and a device may not: told, and the new axis goes again.
TEST_F(ParaCommands, AnAxisThatAWriteBroughtIntoUseIsCompletedOrGoes) {
    const auto bringIn = [this](const std::function<void()>& script) {
        AxisOff[3] = kSet;
        DevSetting[3] = DevSettei[3] = {};
        expectAsk(kSend, BoxAnswer::Yes);
        Screens().frmSelection = [](const SelectionQuestion&) { return std::int16_t{1}; };
        script();
        write();
    };
    bringIn([this] {
        addFault("0RA:1:reply=0RA0");
        platform.expectBox(box::kMoving);
    });
    EXPECT_EQ(AxisMaskOf(AxisOff), 15);
    EXPECT_EQ(DevSetting[3].DevPPR, 192);
    bringIn([this] {
        ParaFields.txtAxisPulse[3] = "40000";
        expectAsk(kReflect, BoxAnswer::Yes);
        for (const auto& text :
             {box::kInvalid, box::kWritten, box::kWrongData, box::kNotSelected}) {
            platform.expectBox(text);
        }
    });
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0111);
    EXPECT_EQ(DevSetting[3], AxisDevice{});
}

} // namespace
} // namespace qdw8::test
