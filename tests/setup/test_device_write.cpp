#include "setup/device_write.h"

#include "link/line_state.h"
#include "link/port.h"
#include "setup/device_bytes.h"
#include "setup/device_form.h"
#include "setup/device_set.h"
#include "setup_bench.h"
#include "support/every_step.h"

#include <algorithm>
#include <filesystem>

namespace qdw8::test {
namespace {

/// The user has chosen a longer stroke for AXIS 1 and a QD-61F for AXIS 2; the controller uses
/// AXIS 1 alone.
struct WriteBench : SetupBench {
    WriteBench() {
        line.controller.setAxisMask(0b0001);
        OpenDevice3(form);
        ChangeStroke(form, 0, "300");
        ChangeSize(form, 1, "61");
        ChangeSpeed(form, 1, "F");
        ChangeStroke(form, 1, "450");
    }
    void run() {
        std::vector<bool> shown;
        cmdPrmCtWrite_Click(form, [&] { shown.push_back(form.commandsEnabled); });
        EXPECT_EQ(shown, (std::vector<bool>{false, true}));
    }
    void write() {
        run();
        platform.checkAllAsked();
    }
    const qdk8::Memory& lasting() const { return line.controller.machine().lasting; }

    DeviceForm form;
};
using DeviceWrite = Unit<WriteBench>;

TEST_F(DeviceWrite, WhateverAxesAreChosenTheControllerHoldsThem) {
    for (unsigned mask = 1; mask < 16; mask += 2) {
        SCOPED_TRACE(mask);
        const qdk8::Memory before = lasting();
        const auto stroke = [mask](std::size_t axis) {
            return static_cast<std::int16_t>(50 * (1 + (mask + axis) % 8));
        };
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const bool used = (mask >> axis & 1U) != 0;
            if (used != form.axes[axis].chkAxisEnable) {
                ChangeAxisEnable(form, axis, used);
            }
            if (used) {
                ChangeSize(form, axis, mask % 4 == 1 ? "52" : "44");
                ChangeStroke(form, axis, std::to_string(stroke(axis)));
            }
        }
        platform.expectBox(box::kWritten);
        write();
        EXPECT_EQ(qdk8::AxisMask(lasting()), mask);
        EXPECT_EQ(AxisMaskOf(AxisOff), static_cast<int>(mask));
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            if (IsSet(AxisOff[axis])) {
                EXPECT_EQ(lasting().blocks[6 + 2 * axis], before.blocks[6 + 2 * axis]);
                continue;
            }
            EXPECT_EQ(DevSetting[axis].DevStroke, stroke(axis));
            EXPECT_EQ(platform.settings["DevStroke" + std::to_string(axis + 1)],
                      std::to_string(stroke(axis)));
            EXPECT_EQ(qdk8::StrokeEnd(lasting(), static_cast<int>(axis)),
                      DevSetting[axis].MaxPulse);
        }
        EXPECT_EQ(CompareDeviceSettings(), 0);
        CloseCtPortForce();
    }
}

struct StepBench : WriteBench {
    StepBench() {
        ParaSet.SM_TIMER = 77;
        AxisOff[1] = kSet;
        before = {};
    }
    Everything before;
};

TEST(DeviceWriteSteps, EveryStep) {
    EveryStep<StepBench>(
        [](StepBench& bench) { bench.run(); },
        [](StepBench& bench, const Step& step) {
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
            if (LineAnswers() && !step.frame.starts_with("0CM0")) {
                EXPECT_EQ(machine.mode, 0);
            }
            EXPECT_TRUE(!step.boxes.empty() || step.frame == "0RA" || step.fault == "dumb")
                << "who gave up knows";
            if (step.fault == "dead") {
                EXPECT_LE(std::count(step.boxes.begin(), step.boxes.end(), box::kTimeout),
                          step.frame == "0CM00" ? 2 : 1);
            }
        },
        {"dead", "error=03", "echo=0ZZ"});
}

TEST_F(DeviceWrite, WhatCantBeWrittenGoesNoFurtherThanTheMask) {
    const Everything before;
    addFault("0RA:1:reply=0RA0");
    platform.expectBox(box::kMoving);
    write();
    EXPECT_EQ(platform.sent, std::vector<std::string>{"0RA"});
    const auto refused = [&](const std::string& text) {
        forgetFrames();
        platform.expectBox(text);
        write();
        EXPECT_EQ(line.controller.count("0WD"), 1);
        EXPECT_EQ(platform.sent.back(), "0CM00");
        EXPECT_EQ(Everything(), before);
    };
    ChangeStroke(form, 0, "123"); // there is no such record
    refused(kNoFactory);
    for (const char* list : {"nqddevice.lst", "w8cmstpr.lst"}) {
        std::filesystem::copy_file(std::string(QDW8_DATA_DIR) + "/" + list, pathOf(list));
    }
    writeFile("w8nqdstpr.lst", "\"QD-K8\",\"QD-STDPRM\"\r\n2,13\r\n"
                               "\" 44L-300\",200,70,8,5,3,1,60000,2,400,0,0,\" 44L300\"\r\n"
                               "\" 61F-450\",200,70,8,5,3,1,10800,8,192,15,0,\" 61F450\"\r\n");
    leaveListsBehind();
    ChangeStroke(form, 0, "300");
    refused(box::kInvalid); // a JOG velocity of 0
}

TEST_F(DeviceWrite, AnAxisThatAStoppedWriteBroughtIntoUseIsCompleted) {
    ChangeAxisEnable(form, 3, true);
    ChangeStroke(form, 3, "123"); // there is no such record
    platform.expectBox(kNoFactory);
    write();
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b1011);
    EXPECT_EQ(DevSetting[3].DevSize, " 61");
    EXPECT_EQ(DevSetting[3].DevPPR, 192);
    EXPECT_EQ(DevSetting[0].DevStroke, 100);
}

TEST_F(DeviceWrite, ThePositionTableIsCheckedAgainstTheNewDevices) {
    showRows(1, 2);
    type(2, kPosi, "15000");
    ChangeSpeed(form, 1, "H");
    platform.expectBox(box::kWritten);
    write();
    EXPECT_DOUBLE_EQ(PosiUnitTable[2].mm[0], 75);
    ChangeStroke(form, 0, "50");
    ChangeSpeed(form, 1, "F"); // this model has no acceleration 3
    platform.expectScreen("frmSyogoKekka");
    platform.expectBox(box::kCheckAgain);
    platform.expectBox(box::kWritten);
    write();
    EXPECT_EQ(DevSetting[0].DevStroke, 50) << "the change stands";
    EXPECT_EQ(cell(2, kPosi), "15000");
}

TEST_F(DeviceWrite, TheWindowStaysWhileItRuns) {
    line.controller.setCommitTime(1500);
    platform.after(500, [this] { EXPECT_FALSE(CancelDevice3(form)); });
    platform.expectBox(box::kWritten);
    write();
    EXPECT_TRUE(CancelDevice3(form));
    EXPECT_EQ(DevSettei[0].DevStroke, 300) << "what was written stands";
}

} // namespace
} // namespace qdw8::test
