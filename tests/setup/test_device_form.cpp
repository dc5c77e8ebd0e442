#include "setup_fixture.h"

#include "device/device_list.h"
#include "device/device_lists.h"
#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "setup/device_set.h"

#include <filesystem>

namespace qdw8::test {
namespace {

class DeviceFormTest : public SetupTest {
protected:
    void open2() { OpenDevice2(form); }
    AxisPanel& axis(std::size_t number) { return form.axes[number - 1]; }

    DeviceForm form;
};

const std::string kStrokes44 = "50,100,150,200,250,300,350,400";
const std::string kStrokes52 = kStrokes44 + ",450,500";
const std::string kStrokes33 = "50,100,150,200,250,300";

TEST_F(DeviceFormTest, OpensOnTheDevicesInForce) {
    open2();
    EXPECT_EQ(axis(1).comboDeviceSize.rows,
              (std::vector<std::string>{" 33", " 44", " 52", " 61", "J52"}));
    EXPECT_EQ(Describe(axis(1)), " 44|L,H>L|" + kStrokes44 + ">100");
    EXPECT_EQ(Describe(axis(2)), " 52|L,H>H|" + kStrokes52 + ">200");
    EXPECT_EQ(Describe(axis(3)), "|>|>") << "out of use";
    EXPECT_TRUE(axis(2).chkAxisEnable);
    EXPECT_FALSE(axis(3).chkAxisEnable);
    // The mounting of a new one is shown and not asked; PG can be chosen for both.
    EXPECT_EQ(DescribeBoxes(axis(1)), "PG off, V on grey, Old off");
    EXPECT_EQ(DescribeBoxes(axis(2)), "PG on, V off, Old on");
    EXPECT_TRUE(form.cancelShown);
}

TEST_F(DeviceFormTest, WhatTheFlagsChangeAtOpening) {
    FactoryDeviceFlag = kSet;
    DispMmFlag = kSet;
    StartDeviceSelectFlag = kSet;
    FirstDeviceSetFlag = kClear;
    DevSetting[0].DevSize = " 61";
    DevSetting[0].NewType = kClear; // a leftover
    open2();
    EXPECT_TRUE(form.cautionShown);
    EXPECT_FALSE(form.cancelShown);
    EXPECT_EQ(DescribeBoxes(axis(1)), "PG off hidden, V on grey hidden, Old off grey");
    EXPECT_EQ(DescribeBoxes(axis(2)), "PG on hidden, V off hidden, Old on");
    EXPECT_FALSE(CancelDevice2(form));
    EXPECT_EQ(DeviceCancelled, kClear);

    OpenDevice3(form);
    EXPECT_TRUE(form.cancelShown) << "start-up never opens this one";
    EXPECT_EQ(KeepAxisFlag, kSet);
    Device3Closed();
    EXPECT_EQ(KeepAxisFlag, kClear);
}

struct ListCase {
    std::string size;         ///< chosen
    std::string speed;        ///< in force before
    std::int16_t stroke;      ///< in force before
    std::string shown;        ///< lists behind it
    std::string boxes;        ///< with an old type in force, PG not fitted
    std::string factoryBoxes; ///< the box of the old type while a factory load is served
};

TEST_F(DeviceFormTest, ListsFollowTheSize) {
    const std::vector<ListCase> cases = {
        {" 33", "H", 100, " 33|L>L|" + kStrokes33 + ">100", "PG off grey, V on grey, Old off", ""},
        {" 33", "", 350, " 33|L>L|" + kStrokes33 + ">50", "PG off grey, V on grey, Old off", ""},
        {"J52", "", 0, "J52|L>L|" + kStrokes33 + ">", "PG on, V on, Old off", ""},
        {" 52", "H", 450, " 52|L,H>H|" + kStrokes52 + ">450", "PG off, V off, Old on", "Old on"},
        {" 52", "F", 450, " 52|L,H>L|" + kStrokes52 + ">450", "PG off, V off, Old on", "Old on"},
        {" 52", "", 450, " 52|L,H>|>", "PG on, V on, Old on", "Old on"},
        {" 61", "F", 450, " 61|L,H,F>F|" + kStrokes52 + ">450", "PG on grey, V on grey, Old off",
         ""},
        {" 99", "L", 100, " 99|>|>", "PG on, V on, Old on", ""},
        {"", "L", 100, "|>|>", "PG on, V on, Old on", ""},
    };
    for (const bool factory : {false, true}) {
        for (const ListCase& one : cases) {
            SCOPED_TRACE(one.size + one.speed + (factory ? " factory" : ""));
            FactoryDeviceFlag = FlagOf(factory);
            DevSetting[0] = {" 44", "L", 100, kClear, kClear, kClear, kSet, 2, 400, 0.005, 0, 0};
            DevSettei[0].NewType = kClear;
            open2();
            EXPECT_EQ(DescribeBoxes(axis(1)), "PG off, V off, Old on");
            DevSetting[0].DevSpeed = one.speed;
            DevSetting[0].DevStroke = one.stroke;
            const bool only = CountsAsNewOnly(one.size);
            DevSetting[0].Vertical = FlagOf(only);
            axis(1).chkDevPgUse.checked = true;
            axis(1).chkDevVsiyou.checked = true;
            ChangeSize(form, 0, one.size);
            EXPECT_EQ(Describe(axis(1)), one.shown);
            std::string boxes = one.boxes;
            if (factory) {
                boxes = boxes.substr(0, boxes.find("Old")) +
                        (one.factoryBoxes.empty() ? "Old off grey" : one.factoryBoxes);
            }
            EXPECT_EQ(DescribeBoxes(axis(1)), boxes);
            EXPECT_EQ(DevSettei[0].NewType, FlagOf(only));
        }
    }
}

TEST_F(DeviceFormTest, SpeedAndStrokeLeadOn) {
    open2();
    ChangeSpeed(form, 0, "h");
    EXPECT_EQ(Describe(axis(1)), " 44|L,H>H|" + kStrokes44 + ">100");
    ChangeStroke(form, 0, "300");
    ChangeSize(form, 0, "61");
    EXPECT_EQ(Describe(axis(1)), " 61|L,H,F>L|" + kStrokes52 + ">100") << "those in force";
    ChangeSpeed(form, 0, "F");
    EXPECT_EQ(DescribeBoxes(axis(1)), "PG on grey, V on grey, Old off");
    // What stands there already changes nothing.
    ChangeStroke(form, 0, "400");
    ChangeSize(form, 0, " 61");
    ChangeSpeed(form, 0, "F");
    EXPECT_EQ(axis(1).comboDeviceStroke.text, "400");
}

TEST_F(DeviceFormTest, ADeviceThatTheListLacksStaysInSight) {
    DevSetting[0].DevSize = " 71";
    DevSetting[0].DevSpeed = "Z";
    open2();
    EXPECT_EQ(Describe(axis(1)), " 71|>Z|>100");
    cmdDeviceSet2_Click(form);
    EXPECT_EQ(DevSettei[0].DevSize, " 71");
    EXPECT_EQ(DevSettei[0].DevStroke, 100);
}

TEST_F(DeviceFormTest, AnAxisTickedJustNowGetsItsLists) {
    open2();
    ChangeAxisEnable(form, 2, true);
    EXPECT_EQ(Describe(axis(3)), " 44|L,H>L|" + kStrokes44 + ">100");
    EXPECT_EQ(AxisOff[2], kSet) << "not before it is confirmed";
    ChangeSpeed(form, 2, "H");
    ChangeStroke(form, 2, "250");
    ChangeAxisEnable(form, 2, false);
    ChangeAxisEnable(form, 2, true);
    EXPECT_EQ(Describe(axis(3)), " 44|L,H>H|" + kStrokes44 + ">250");
}

TEST_F(DeviceFormTest, TheFamilyFillsTheListsOfAllAxesAnew) {
    open2();
    ChangeStroke(form, 1, "500");
    axis(2).chkDevPgUse.checked = false;
    for (AxisPanel& panel : form.axes) {
        panel.comboDeviceSize.rows.clear();
    }
    ChangeFamily(form, 0, kFamilyHn);
    EXPECT_EQ(FamilyText[0], "HN");
    EXPECT_EQ(axis(1).comboDeviceSize.rows.size(), 5);
    EXPECT_EQ(axis(2).comboDeviceSize.rows.size(), 5);
    EXPECT_EQ(axis(2).comboDeviceStroke.text, "500") << "another axis keeps its choice";
    EXPECT_EQ(DescribeBoxes(axis(2)), "PG off, V off, Old on");

    leaveListsBehind();
    platform.expectBox(kNoList);
    ChangeFamily(form, 0, kFamilyQd);
    EXPECT_EQ(FamilyText[0], "QD");
    EXPECT_EQ(axis(2).comboDeviceStroke.text, "500");
    ASSERT_TRUE(CancelDevice2(form));
}

TEST_F(DeviceFormTest, TheTypeReadsTheListOfItsAxisAnew) {
    open2();
    ChangeNewOrOld(form, 0, true);
    EXPECT_EQ(DevSettei[0].NewType, kClear);
    EXPECT_EQ(DescribeBoxes(axis(1)), "PG off, V on, Old on") << "mounting can be chosen now";
    std::filesystem::copy_file(std::string(QDW8_DATA_DIR) + "/nqddevice.lst",
                               pathOf("nqddevice.lst"));
    leaveListsBehind();
    ChangeNewOrOld(form, 0, false);
    EXPECT_EQ(DescribeBoxes(axis(1)), "PG off, V on grey, Old off");
    std::filesystem::remove(pathOf("nqddevice.lst"));
    platform.expectBox(kNoList);
    ChangeNewOrOld(form, 0, true);
    EXPECT_EQ(DeviceListFailed[0], kSet);
    EXPECT_EQ(DeviceListFailed[1], kClear);

    axis(2).chkNewOrOld.enabled = false;
    ChangeNewOrOld(form, 1, false);
    EXPECT_EQ(DevSettei[1].NewType, kClear) << "a grey box can't be changed";
}

TEST_F(DeviceFormTest, WithoutAListOnlyOkWorks) {
    leaveListsBehind();
    AxisOff.fill(kSet);
    StartDeviceSelectFlag = kSet;
    platform.expectBox(kNoList);
    open2();
    for (const AxisPanel& panel : form.axes) {
        EXPECT_TRUE(panel.comboDeviceSize.rows.empty());
    }
    EXPECT_FALSE(CancelDevice2(form));
    cmdDeviceSet2_Click(form); // and asks nothing
    EXPECT_EQ(DeviceCancelled, kClear);
}

TEST_F(DeviceFormTest, FiltersKeepTheOrderOfTheFileAndEachTextOnce) {
    writeFile("nqddevice.lst", "6\r\n\" 44H-100\",6,400,1,1\r\n\" 44L-300\",2,400,1,1\r\n"
                               "\" 44H-050\",6,400,1,1\r\n\" 44H-100\",8,400,1,1\r\n"
                               "\"J52L-100\",2,400,0,2\r\n\" 44A-005\",2,400,0,2\r\n");
    leaveListsBehind();
    ASSERT_EQ(LoadDeviceList(), 0);
    EXPECT_EQ(FilterSpeedsForSize(1, " 44"), (std::vector<std::string>{"H", "L", "A"}));
    EXPECT_EQ(DeviceListTables[1].speeds.size(), 3);
    EXPECT_EQ(FilterStrokes(1, " 44", "H"), (std::vector<std::string>{"100", "50"}));
    EXPECT_EQ(FilterStrokes(1, " 44", "A"), (std::vector<std::string>{"5"}));
    EXPECT_TRUE(FilterSpeedsForSize(1, "44").empty());
}

// ---- OK and Cancel ----

struct SetCase {
    std::string size;
    bool old;
    bool vertical;
    bool pg;
    int family;
    Flag newType, isVertical, withPg;
};

TEST_F(DeviceFormTest, OkTakesTypeAndOptions) {
    const std::vector<SetCase> cases = {
        {"J52", true, false, true, kFamilyQd, kSet, kSet, kSet},
        {" 33", true, false, false, kFamilyQd, kSet, kSet, kClear},
        {" 61", true, false, true, kFamilyHn, kSet, kSet, kClear},
        {" 71", true, false, true, kFamilyQd, kSet, kSet, kSet},
        {" 44", false, false, false, kFamilyQd, kSet, kSet, kClear},
        {" 44", true, false, true, kFamilyQd, kClear, kClear, kSet},
        {" 44", true, true, true, kFamilyQd, kClear, kSet, kSet},
        {" 52", true, true, true, kFamilyHn, kClear, kClear, kClear},
    };
    for (const SetCase& one : cases) {
        SCOPED_TRACE(one.size + (one.old ? " old" : " new"));
        open2();
        AxisPanel& panel = axis(1);
        panel.comboDeviceSize.text = one.size;
        panel.comboDeviceSpeed.text = "F";
        panel.comboDeviceStroke.text = "250";
        panel.chkNewOrOld.checked = one.old;
        panel.chkDevVsiyou.checked = one.vertical;
        panel.chkDevPgUse.checked = one.pg;
        panel.optQdSelect = one.family;
        FamilyText[0] = one.family == kFamilyHn ? "HN" : "QD";
        cmdDeviceSet2_Click(form);
        EXPECT_EQ(DevSettei[0].DevSize, one.size);
        EXPECT_EQ(DevSettei[0].DevSpeed, "F");
        EXPECT_EQ(DevSettei[0].DevStroke, 250);
        EXPECT_EQ(DevSettei[0].NewType, one.newType);
        EXPECT_EQ(DevSettei[0].Vertical, one.isVertical);
        EXPECT_EQ(DevSettei[0].WithPG, one.withPg);
        EXPECT_EQ(DevSetting[0].DevSize, " 44") << "that is for the caller";

        // The other window knows one family only.
        cmdDeviceSet3_Click(form);
        EXPECT_EQ(FamilyText[0], "QD");
        EXPECT_EQ(DevSettei[0].WithPG, FlagOf(one.pg));
        FamilyText.fill("QD");
    }
}

TEST_F(DeviceFormTest, OtherAxesAreAskedForFirst) {
    const auto untouched = DevSettei[1];
    std::vector<std::string> titles;
    const MessageBox ask = ThePlatform().ShowMessageBox;
    ThePlatform().ShowMessageBox = [&](const BoxQuestion& question) {
        titles.push_back(question.title);
        return ask(question);
    };
    const std::string text = "A setting of AXIS is changed.\r\nIs a setting of AXIS changed?";
    open2();
    ChangeStroke(form, 0, "300");
    ChangeStroke(form, 1, "500");
    ChangeAxisEnable(form, 1, false);
    ChangeAxisEnable(form, 3, true);

    platform.expectBox(text, BoxButtons::YesNo, BoxAnswer::No);
    cmdDeviceSet2_Click(form);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kClear, kSet, kSet}));
    EXPECT_EQ(DevSettei[0].DevStroke, 300) << "the devices are stored all the same";
    EXPECT_EQ(DevSettei[1].DevStroke, 500);
    EXPECT_EQ(DevSettei[3].DevSize, "");

    DevSettei[1] = untouched;
    platform.expectBox(text, BoxButtons::YesNo, BoxAnswer::Yes);
    cmdDeviceSet2_Click(form);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kSet, kSet, kClear}));
    EXPECT_EQ(DevSettei[1], untouched) << "an axis switched off keeps everything";
    EXPECT_EQ(DevSettei[3].DevSize, " 44");
    EXPECT_EQ(titles, (std::vector<std::string>(2, "The check of AXIS setting change")));

    AxisOff = {kClear, kClear, kSet, kSet};
    cmdDeviceSet3_Click(form); // asks nothing
    EXPECT_EQ(AxisOff[1], kClear);
}

TEST_F(DeviceFormTest, CancelLeavesNothingBehind) {
    const auto settei = DevSettei;
    for (const bool first : {true, false}) {
        first ? OpenDevice2(form) : OpenDevice3(form);
        ChangeNewOrOld(form, 0, true);
        ChangeSize(form, 1, "J52");
        ChangeFamily(form, 0, kFamilyHn);
        EXPECT_NE(DevSettei, settei);
        EXPECT_TRUE(first ? CancelDevice2(form) : CancelDevice3(form));
        EXPECT_EQ(DevSettei, settei);
        EXPECT_EQ(FamilyText[0], "QD");
        EXPECT_EQ(DeviceCancelled, FlagOf(first)) << "only one of them has a caller who asks";
        DeviceCancelled = kClear;
    }
    form.commandsEnabled = false;
    EXPECT_FALSE(CancelDevice3(form)) << "not in the middle of a write";
}

} // namespace
} // namespace qdw8::test
