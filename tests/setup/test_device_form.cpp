#include "device/device_list.h"
#include "device/device_lists.h"
#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "setup/device_set.h"
#include "setup_bench.h"

#include <filesystem>

namespace qdw8::test {
namespace {

std::string Joined(const std::vector<std::string>& rows) {
    std::string text;
    for (const std::string& row : rows) {
        text += (text.empty() ? "" : ",") + row;
    }
    return text;
}

std::string Box(const std::string& name, const FormBox& box) {
    return " " + name + (box.checked ? "+" : "-") + (box.enabled ? "" : "grey") +
           (box.visible ? "" : "hidden");
}

/// Lists and boxes of an axis in one line: " 44|L,H>L|50,100>100 PG- V+ Old-".
std::string Shown(const AxisPanel& panel) {
    return panel.comboDeviceSize.text + "|" + Joined(panel.comboDeviceSpeed.rows) + ">" +
           panel.comboDeviceSpeed.text + "|" + Joined(panel.comboDeviceStroke.rows) + ">" +
           panel.comboDeviceStroke.text + Box("PG", panel.chkDevPgUse) +
           Box("V", panel.chkDevVsiyou) + Box("Old", panel.chkNewOrOld);
}

struct FormBench : SetupBench {
    FormBench() { OpenDevice2(form); }
    DeviceForm form;
};
using DeviceFormTest = Unit<FormBench>;

const std::string k33 = "50,100,150,200,250,300";
const std::string k44 = k33 + ",350,400";
const std::string k52 = k44 + ",450,500";

TEST_F(DeviceFormTest, OpensOnTheDevicesInForce) {
    EXPECT_EQ(Joined(form.axes[0].comboDeviceSize.rows), " 33, 44, 52, 61,J52");
    EXPECT_EQ(Shown(form.axes[0]), " 44|L,H>L|" + k44 + ">100 PG- V+grey Old-");
    EXPECT_EQ(Shown(form.axes[1]), " 52|L,H>H|" + k52 + ">200 PG+ V- Old+");
    EXPECT_EQ(Shown(form.axes[2]).substr(0, 5), "|>|> ") << "out of use";
    EXPECT_TRUE(form.axes[1].chkAxisEnable && !form.axes[2].chkAxisEnable);
    EXPECT_TRUE(form.cancelShown && !form.cautionShown);

    DevSetting[0].DevSize = " 61";
    DevSetting[0].NewType = kClear; // a leftover
    DevSetting[1].DevSize = " 71";  // in no list: it stays in sight
    FirstDeviceSetFlag = kClear;
    FactoryDeviceFlag = DispMmFlag = StartDeviceSelectFlag = kSet;
    OpenDevice2(form);
    EXPECT_EQ(Shown(form.axes[0]), " 61|L,H,F>L|" + k52 + ">100 PG-hidden V+greyhidden Old-grey");
    EXPECT_EQ(Shown(form.axes[1]), " 71|>H|>200 PG+hidden V-hidden Old-grey");
    EXPECT_TRUE(form.cautionShown && !form.cancelShown);
    cmdDeviceSet2_Click(form);
    EXPECT_EQ(DevSettei[1].DevSize, " 71");
    OpenDevice3(form);
    EXPECT_TRUE(form.cancelShown) << "start-up never opens this one";
    EXPECT_EQ(KeepAxisFlag, kSet);
    Device3Closed();
    EXPECT_EQ(KeepAxisFlag, kClear);
}

// Size chosen, speed and stroke in force before, lists and boxes behind it.
TEST_F(DeviceFormTest, ListsFollowTheSize) {
    struct Case {
        std::string size, speed;
        std::int16_t stroke;
        std::string shown;
    };
    for (const Case& one : {
             Case{" 33", "H", 100, " 33|L>L|" + k33 + ">100 PG-grey V+grey Old-"},
             {" 33", "", 350, " 33|L>L|" + k33 + ">50 PG-grey V+grey Old-"},
             {"J52", "", 0, "J52|L>L|" + k33 + "> PG+ V+ Old-"},
             {" 52", "F", 450, " 52|L,H>L|" + k52 + ">450 PG- V- Old+"},
             {" 52", "", 450, " 52|L,H>|> PG+ V+ Old+"},
             {" 61", "F", 450, " 61|L,H,F>F|" + k52 + ">450 PG+grey V+grey Old-"},
             {"", "L", 100, "|>|> PG+ V+ Old+"},
         }) {
        SCOPED_TRACE(one.shown);
        DevSetting[0] = {" 44", "L", 100, kClear, kClear, kClear, kSet, 2, 400, 0, 0};
        DevSettei[0].NewType = kClear;
        OpenDevice2(form);
        DevSetting[0].DevSpeed = one.speed;
        DevSetting[0].DevStroke = one.stroke;
        const bool only = CountsAsNewOnly(one.size);
        DevSetting[0].Vertical = FlagOf(only);
        form.axes[0].chkDevPgUse.checked = form.axes[0].chkDevVsiyou.checked = true;
        ChangeSize(form, 0, one.size);
        EXPECT_EQ(Shown(form.axes[0]), one.shown);
        EXPECT_EQ(DevSettei[0].NewType, FlagOf(only));
    }
}

TEST_F(DeviceFormTest, SpeedAndStrokeLeadOn) {
    ChangeSpeed(form, 0, "h");
    EXPECT_EQ(Shown(form.axes[0]).substr(0, 9), " 44|L,H>H");
    ChangeStroke(form, 0, "300");
    ChangeSize(form, 0, "61");
    EXPECT_EQ(form.axes[0].comboDeviceStroke.text, "100") << "the one in force";
    ChangeSpeed(form, 0, "F");
    ChangeStroke(form, 0, "400");
    ChangeSize(form, 0, " 61"); // what stands there already changes nothing
    ChangeSpeed(form, 0, "F");
    EXPECT_EQ(Shown(form.axes[0]), " 61|L,H,F>F|" + k52 + ">400 PG+grey V+grey Old-");

    ChangeAxisEnable(form, 2, true);
    EXPECT_EQ(Shown(form.axes[2]).substr(0, 9), " 44|L,H>L") << "ticked just now";
    EXPECT_EQ(AxisOff[2], kSet) << "not before it is confirmed";
    ChangeStroke(form, 2, "250");
    ChangeAxisEnable(form, 2, false);
    ChangeAxisEnable(form, 2, true);
    EXPECT_EQ(form.axes[2].comboDeviceStroke.text, "250");
}

TEST_F(DeviceFormTest, FamilyAndTypeReadTheListAnew) {
    ChangeStroke(form, 1, "500");
    form.axes[1].comboDeviceSize.rows.clear();
    ChangeFamily(form, 0, kFamilyHn);
    EXPECT_EQ(FamilyText[0], "HN");
    EXPECT_EQ(Shown(form.axes[1]), " 52|L,H>H|" + k52 + ">500 PG+ V- Old+");
    EXPECT_EQ(form.axes[1].comboDeviceSize.rows.size(), 5U) << "the lists of all axes";
    ChangeNewOrOld(form, 0, true);
    EXPECT_EQ(DevSettei[0].NewType, kClear);
    EXPECT_EQ(Box("V", form.axes[0].chkDevVsiyou), " V+") << "mounting can be chosen now";
    form.axes[1].chkNewOrOld.enabled = false;
    ChangeNewOrOld(form, 1, false);
    EXPECT_EQ(DevSettei[1].NewType, kClear) << "a grey box can't be changed";
}

TEST_F(DeviceFormTest, WithoutAListOnlyOkWorks) {
    leaveListsBehind();
    for (int box = 0; box < 3; ++box) {
        platform.expectBox(box::kNoDeviceList);
    }
    ChangeFamily(form, 0, kFamilyHn);
    EXPECT_EQ(FamilyText[0], "HN");
    EXPECT_EQ(form.axes[1].comboDeviceStroke.text, "200");
    DeviceListFailed.fill(kClear);
    ChangeNewOrOld(form, 0, true);
    EXPECT_EQ(DeviceListFailed, (std::array<Flag, kAxes>{kSet, kClear, kClear, kClear}));
    AxisOff.fill(kSet);
    OpenDevice2(form);
    EXPECT_TRUE(form.axes[0].comboDeviceSize.rows.empty());
    cmdDeviceSet2_Click(form); // and asks nothing
    EXPECT_EQ(DeviceCancelled, kClear);
}

TEST_F(DeviceFormTest, FiltersKeepTheOrderOfTheFileAndEachTextOnce) {
    writeFile("nqddevice.lst", "4\r\n\" 44H-100\",6,400,1,1\r\n\" 44L-300\",2,400,1,1\r\n"
                               "\" 44H-050\",6,400,1,1\r\n\" 44H-100\",8,400,1,1\r\n");
    leaveListsBehind();
    ASSERT_EQ(LoadDeviceList(), 0);
    EXPECT_EQ(FilterSpeedsForSize(1, " 44"), (std::vector<std::string>{"H", "L"}));
    EXPECT_EQ(FilterStrokes(1, " 44", "H"), (std::vector<std::string>{"100", "50"}));
    EXPECT_TRUE(FilterSpeedsForSize(1, "44").empty());
}

// ---- OK and Cancel ----

TEST_F(DeviceFormTest, OkTakesTypeAndOptions) {
    struct Case {
        std::string size;
        bool old, vertical, pg, own;
        Flag newType, isVertical, withPg;
    };
    for (const Case& one : {Case{"J52", true, false, true, true, kSet, kSet, kSet},
                            {" 61", true, false, true, false, kSet, kSet, kClear},
                            {" 71", true, false, true, true, kSet, kSet, kSet},
                            {" 44", false, false, false, true, kSet, kSet, kClear},
                            {" 44", true, false, true, true, kClear, kClear, kSet},
                            {" 44", true, true, true, true, kClear, kSet, kSet},
                            {" 52", true, true, true, false, kClear, kClear, kClear}}) {
        SCOPED_TRACE(one.size);
        AxisPanel& panel = form.axes[0];
        panel.comboDeviceSize.text = one.size;
        panel.comboDeviceSpeed.text = "F";
        panel.comboDeviceStroke.text = "250";
        panel.chkNewOrOld.checked = one.old;
        panel.chkDevVsiyou.checked = one.vertical;
        panel.chkDevPgUse.checked = one.pg;
        panel.optQdSelect = one.own ? kFamilyQd : kFamilyHn;
        FamilyText[0] = one.own ? "QD" : "HN";
        cmdDeviceSet2_Click(form);
        const AxisDevice expected{
            one.size,        "F", 250, one.newType, one.withPg, one.isVertical,
            FlagOf(one.own), 2,   400, 0,           0};
        EXPECT_EQ(DevSettei[0], expected);
        EXPECT_EQ(DevSetting[0].DevSize, " 44") << "that is for the caller";
        cmdDeviceSet3_Click(form); // the other window knows one family only
        EXPECT_EQ(FamilyText[0], "QD");
        EXPECT_EQ(DevSettei[0].WithPG, FlagOf(one.pg));
    }
}

TEST_F(DeviceFormTest, OtherAxesAreAskedForFirst) {
    const auto untouched = DevSettei[1];
    ChangeStroke(form, 0, "300");
    ChangeStroke(form, 1, "500");
    ChangeAxisEnable(form, 1, false);
    ChangeAxisEnable(form, 3, true);
    platform.expectBox(kOtherAxes, BoxButtons::YesNo, BoxAnswer::No);
    cmdDeviceSet2_Click(form);
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b0011);
    EXPECT_EQ(DevSettei[0].DevStroke, 300) << "the devices are stored all the same";
    EXPECT_EQ(DevSettei[1].DevStroke, 500);
    DevSettei[1] = untouched;
    platform.expectBox(kOtherAxes, BoxButtons::YesNo, BoxAnswer::Yes);
    cmdDeviceSet2_Click(form);
    EXPECT_EQ(AxisMaskOf(AxisOff), 0b1001);
    EXPECT_EQ(DevSettei[1], untouched) << "an axis switched off keeps everything";
    EXPECT_EQ(DevSettei[3].DevSize, " 44");
}

TEST_F(DeviceFormTest, CancelLeavesNothingBehind) {
    const Everything before;
    for (const bool first : {true, false}) {
        first ? OpenDevice2(form) : OpenDevice3(form);
        ChangeNewOrOld(form, 0, true);
        ChangeSize(form, 1, "J52");
        ChangeFamily(form, 0, kFamilyHn);
        EXPECT_TRUE(first ? CancelDevice2(form) : CancelDevice3(form));
        EXPECT_EQ(Everything(), before);
        EXPECT_EQ(DeviceCancelled, FlagOf(first)) << "only one of them has a caller who asks";
        DeviceCancelled = kClear;
    }
    StartDeviceSelectFlag = kSet;
    OpenDevice2(form);
    for (const auto answer : {BoxAnswer::Cancel, BoxAnswer::Ok}) {
        platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, answer);
        EXPECT_EQ(CancelDevice2(form), answer == BoxAnswer::Ok);
        EXPECT_EQ(ProgramEndFlag, FlagOf(answer == BoxAnswer::Ok));
    }
}

} // namespace
} // namespace qdw8::test
