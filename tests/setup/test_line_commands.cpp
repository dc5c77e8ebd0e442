// The alarm reset and the small commands that ask the controller what it is, as a user meets them.

#include "setup/line_commands.h"

#include "app/command_states.h"
#include "app/main_panel.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "link/alarm.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "support/boxes.h"
#include "support/every_step.h"

namespace qdw8::test {
namespace {

const std::string kPowerBox =
    "The Alarm is not resettable.\r\nPlease turn off a power supply,and then turn on a power "
    "supply again in order to reset the alarm.";

/// AXIS 2 and 3 are out of use on both sides; every axis has a device.
struct QueryBench : LineBench {
    QueryBench() {
        SetBuilt(Command::cmdReset);
        CMDBTN_Yuko();
        line.controller.setAxisMask(9);
        for (AxisDevice& device : DevSetting) {
            device = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 0, 0};
        }
        Culc_MaxPulse();
        AxisOff = {kClear, kSet, kSet, kClear};
        SetOfflineState(); // each command goes on line by itself
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

TEST(LineCommands, VersionsOfMainUnitAndAxesInUse) {
    EveryStep<QueryBench>([](QueryBench&) { mnuFuncCtversion_Click(); },
                          [](QueryBench&, const Step& step) {
                              CheckQuery("The version of this controller is as follows.\r\n\r\n"
                                         "<MAIN>  140\r\n\r\n<AXIS1>  121\r\n\r\n<AXIS4>  121",
                                         step);
                          });
}

TEST(LineCommands, AxesInUseAreTakenOverShownAndPainted) {
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

TEST(LineCommands, ResetTellsOfAnAlarmThatLastsAndAFailedCheckBlocksNothing) {
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

TEST(LineCommands, OffLineIsAskedFirst) {
    QueryBench bench;
    bench.platform.recordsBoxes = false;
    PortOccupyFlag = kSet;
    for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::Ok}) {
        GoOnLine();
        OpenCtPort();
        bench.platform.expectBox("Do you change the software to Offline from Online?",
                                 BoxButtons::OkCancel, answer);
        mnuSettingsOffline_Click();
        EXPECT_EQ(IsSet(OffLineFlag), answer == BoxAnswer::Ok);
        EXPECT_EQ(bench.platform.portOpen, answer == BoxAnswer::Cancel);
    }
}

} // namespace
} // namespace qdw8::test
