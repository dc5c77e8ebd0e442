// The commands that talk to the controller, with every way in which the line can fail them.

#include "app/command_states.h"
#include "app/main_panel.h"
#include "link/line_state.h"
#include "link/window_command.h"
#include "parameter/para_rows.h"
#include "parameter/sample_sets.h"
#include "setup/device_set.h"
#include "setup/device_write.h"
#include "setup/line_commands.h"
#include "setup/para_window_commands.h"
#include "setup_bench.h"
#include "support/every_step.h"

#include <algorithm>

namespace qdw8::test {
namespace {

const std::string kNotWritten = "Fail to Write parameters.";
const std::string kReflect = "Is a setting of AXIS and an DEVICE reflected in PC software?";

struct ParaBench : SetupBench {
    ParaBench() { agree(), inController = ParaSet; }
    ParameterSet inController;
    std::int16_t result = 0;
};

TEST(SetupSteps, OfAParameterRead) {
    for (auto* const command : {GetParametaValue, GetParametaValue2}) {
        EveryStep<ParaBench>(
            [command](ParaBench& bench) {
                ParaSet = SampleSet();
                ParaRowTable = {};
                ParaReserved = {};
                bench.result = command();
            },
            [command](ParaBench& bench, const Step& step) {
                EXPECT_EQ(ParaSet, bench.result == 0 ? bench.inController : SampleSet());
                EXPECT_EQ(ParaRowTable == ParaRows{}, bench.result != 0);
                EXPECT_EQ(ParaReserved == ReservedBytes{}, bench.result != 0);
                if (step.fault.empty() || step.dead()) {
                    EXPECT_EQ(bench.result, step.dead() ? 1 : 0);
                }
                if (bench.result != 0) {
                    EXPECT_TRUE(step.boxes.back() == BoxText("no axis") ||
                                step.boxes.back() == "Failed check of parameters.");
                }
            },
            {"dead", "error=03", "short"});
    }
}

TEST(SetupSteps, OfAParameterWrite) {
    EveryStep<ParaBench>(
        [](ParaBench&) {
            ParaFields.txtHomePush[0] = "99";
            cmdParaWrite_Click();
        },
        [](ParaBench& bench, const Step& step) {
            const auto told = [&step](const std::string& text) {
                return std::count(step.boxes.begin(), step.boxes.end(), text);
            };
            const bool lasting =
                bench.line.controller.machine().lasting.blocks[5].substr(4, 2) == "63";
            const bool modeAsked = step.frame == "0CM00" || step.frame == "0CM01";
            const bool inWrites = step.frame.starts_with("0WD") || step.frame == "0WE2";
            EXPECT_EQ(told(kReflect), lasting && told(kNotWritten) == 0 ? 1 : 0);
            EXPECT_EQ(told(kNotWritten), inWrites ? 1 : 0);
            EXPECT_LE(told(BoxText("timeout")) + told(BoxText("port")),
                      step.frame == "0CM00" ? 2 : 1)
                << "a line that no longer answers is not asked again";
            if (LineAnswers && !modeAsked) {
                EXPECT_EQ(bench.line.controller.machine().mode, 0);
            }
            EXPECT_LE(told(BoxText("written")), 1 - told(kNotWritten));
            if (step.fault.empty()) {
                EXPECT_EQ(told(BoxText("written")), 1);
            }
        },
        {"dead", "error=03", "echo=0ZZ", "previous"});
}

TEST(SetupSteps, OfAVerifyWithTheController) {
    EveryStep<ParaBench>(
        [](ParaBench&) {
            ParaRowTable = {};
            ParaFields.txtHomePush[0] = "99";
            RunWindowCommand(cmdConpareCT_Click);
        },
        [](ParaBench&, const Step& step) {
            const bool compared = step.fault.empty() || step.fault == "silence";
            ASSERT_EQ(step.boxes.size(), 1U);
            EXPECT_EQ(step.boxes[0].ends_with("NG\r\n<HOME Parameter> :PUSH(1),"), compared);
            EXPECT_EQ(ParaRowTable == ParaRows{}, !compared);
        },
        {"dead", "silence", "error=03", "short"});
}

/// The user has chosen a longer stroke for AXIS 1 and a QD-61F for AXIS 2; the controller uses
/// AXIS 1 alone.
struct DeviceBench : SetupBench {
    DeviceBench() {
        line.controller.setAxisMask(0b0001);
        OpenDevice3(form);
        ChangeStroke(form, 0, "300");
        ChangeSize(form, 1, "61");
        ChangeSpeed(form, 1, "F");
        ParaSet.SM_TIMER = 77;
        AxisOff[1] = kSet;
        before = {};
    }
    DeviceForm form;
    Everything before;
};

TEST(SetupSteps, OfADeviceWrite) {
    EveryStep<DeviceBench>(
        [](DeviceBench& bench) { cmdPrmCtWrite_Click(bench.form, [] {}); },
        [](DeviceBench& bench, const Step& step) {
            const auto& machine = bench.line.controller.machine();
            const bool written = qdk8::StrokeEnd(machine.lasting, 0) == 60000;
            const bool replyLost = step.frame.starts_with("0WD0") || step.frame == "0WE2" ||
                                   step.fault == "stray" || step.fault == "previous";
            if (!replyLost) {
                EXPECT_EQ(AxisMaskOf(AxisOff), static_cast<int>(qdk8::AxisMask(machine.working)));
                Everything now;
                now.off = bench.before.off;
                EXPECT_EQ(now == bench.before, !written) << "all or nothing";
                EXPECT_EQ(bench.platform.settings["DevStroke1"], written ? "300" : "");
                EXPECT_EQ(DevSetting[1].DevPPR, written ? 192 : 400);
            }
            if (LineAnswers && !step.frame.starts_with("0CM0")) {
                EXPECT_EQ(machine.mode, 0);
            }
            EXPECT_TRUE(!step.boxes.empty() || step.frame == "0RA" || step.fault == "dumb")
                << "who gave up knows";
            if (step.fault == "dead") {
                EXPECT_LE(std::count(step.boxes.begin(), step.boxes.end(), BoxText("timeout")),
                          step.frame == "0CM00" ? 2 : 1);
            }
        },
        {"dead", "error=03", "echo=0ZZ"});
}

const std::string kPowerBox =
    "The Alarm is not resettable.\r\nPlease turn off a power supply,and then turn on a power "
    "supply again in order to reset the alarm.";

/// AXIS 2 and 3 are out of use on both sides; each command goes on line by itself.
struct QueryBench : SetupBench {
    QueryBench() {
        SetBuilt(Command::cmdReset);
        CMDBTN_Yuko();
        line.controller.setAxisMask(9);
        DevSetting[3] = DevSetting[2] = DevSetting[0];
        AxisOff = {kClear, kSet, kSet, kClear};
        SetOfflineState();
    }
};

void CheckQuery(const std::string& answer, const Step& step) {
    EXPECT_TRUE(IsEnabled(Command::cmdReset));
    if (step.fault != "stray") { // it spoils the frame behind it
        // A lost reply is asked for again, but for the status. Before the first there is none.
        const bool lost = step.fault == "silence" || (step.fault == "previous" && step.number == 1);
        EXPECT_EQ(!step.boxes.empty() && step.boxes.back() == answer,
                  step.fault.empty() || (lost && step.frame != "0CM1"));
    }
    EXPECT_LE(step.boxes.size(), 1U);
}

TEST(SetupSteps, VersionsOfMainUnitAndAxesInUse) {
    EveryStep<QueryBench>([](QueryBench&) { mnuFuncCtversion_Click(); },
                          [](QueryBench&, const Step& step) {
                              CheckQuery("The version of this controller is as follows.\r\n\r\n"
                                         "<MAIN>  140\r\n\r\n<AXIS1>  121\r\n\r\n<AXIS4>  121",
                                         step);
                          });
}

TEST(SetupSteps, AxesInUseAreTakenOverShownAndPainted) {
    EveryStep<QueryBench>(
        [](QueryBench&) {
            AxisOff.fill(kClear);
            mnuFuncGetAxis_Click();
        },
        [](QueryBench&, const Step& step) {
            CheckQuery("Axis setting is 1,4.", step);
            const bool taken = !step.boxes.empty() && step.boxes.back().starts_with("Axis");
            EXPECT_EQ(IsSet(AxisOff[1]), taken);
            EXPECT_EQ(ThePanel().lblDeviceType[0].empty(), !taken) << "painted";
        });
}

TEST(SetupSteps, ResetTellsOfAnAlarmThatLastsAndAFailedCheckBlocksNothing) {
    EveryStep<QueryBench>(
        [](QueryBench&) {
            AlarmFlag = kSet;
            cmdReset_Click();
        },
        [](QueryBench&, const Step& step) {
            EXPECT_TRUE(IsEnabled(Command::cmdReset));
            EXPECT_FALSE(IsSet(CommErrorFlag) && step.frame == "0CM1");
            EXPECT_EQ(!step.boxes.empty() && step.boxes.back() == kPowerBox,
                      step.frame == "0AR" && step.fault == "error=14");
            if (step.fault.empty() || (step.frame == "0CM1" && step.dead())) {
                EXPECT_FALSE(IsSet(AlarmFlag));
                EXPECT_EQ(ThePanel().lblErrorComment, "No Error");
            }
        });
}

} // namespace
} // namespace qdw8::test
