// The device list file: what is read of it, what the lookups find, and what a bad file leaves.

#include "device/device_list.h"

#include "device_test.h"

#include <utility>
#include <vector>

namespace qdw8::test {
namespace {

using DeviceList = DeviceTest;
using Texts = std::vector<std::string>;

std::string ListOf(int records) {
    std::string text = std::to_string(records) + "\n";
    for (int i = 0; i < records; ++i) {
        text += Record(" 44L-" + std::to_string(100 + i));
    }
    return text;
}

TEST_F(DeviceList, LoadsEveryAxisInFileOrder) {
    writeList("4\r\n" + Record(" 52H-300", "6, 400,1,2") + Record(" 44L_050", "2,400,0,1") +
              Record("J52L-100") + Record(" 44H-100"));
    ASSERT_EQ(LoadDeviceList(), 0);
    for (const DeviceListTable& table : DeviceListTables) {
        ASSERT_EQ(table.rows.size(), 4U);
        EXPECT_EQ(table.sizes, (Texts{" 52", " 44", "J52"}));
        EXPECT_EQ(table.speeds, (Texts{"H", "L"}));
    }
    const DeviceListRow& first = DeviceListTables[3].rows[0];
    EXPECT_EQ(first.stroke, 300);
    EXPECT_EQ(first.lead, 6);
    EXPECT_EQ(first.ppr, 400);
    EXPECT_EQ(first.pgOption, 1);
    EXPECT_EQ(first.verticalOption, 2);
    EXPECT_EQ(DeviceListTables[0].rows[1].stroke, 50);
}

TEST_F(DeviceList, TheOtherLoadsLeaveTheSpeedsOut) {
    writeList("1\n" + Record(" 44L-100"));
    ASSERT_EQ(LoadDeviceListSizes(), 0);
    EXPECT_EQ(DeviceListTables[1].sizes, Texts{" 44"});
    EXPECT_TRUE(DeviceListTables[1].speeds.empty());

    writeList("1\n" + Record(" 52L-100"));
    ASSERT_EQ(LoadDeviceListAxis(2), 0);
    EXPECT_EQ(DeviceListTables[2].sizes, Texts{" 52"});
    EXPECT_EQ(DeviceListTables[1].sizes, Texts{" 44"}) << "each axis has a list of its own";
}

TEST_F(DeviceList, BadFilesFailTheLoadWithOneBox) {
    std::string sevenSizes = "7\n";
    std::string sevenSpeeds = "7\n";
    for (int i = 0; i < 7; ++i) {
        sevenSizes += Record(" 4" + std::to_string(i) + "L-100");
        sevenSpeeds += Record(std::string(" 44") + static_cast<char>('A' + i) + "-100");
    }
    const std::vector<std::pair<std::string, std::string>> files{
        {"empty", ""},
        {"cut in a record", "2\n" + Record(" 44L-100") + "\" 44L-150\",2,400"},
        {"fewer records than told", "2\n" + Record(" 44L-100")},
        {"100 records", ListOf(100)},
        {"a count beyond every limit", "99999999999999999999\n"},
        {"a quote that never closes", "1\n\" 44L-100,2,400,0,0\n"},
        {"a lead that fits no cell", "1\n" + Record(" 44L-100", "40000,400,0,0")},
        {"a text for a lead", "1\n" + Record(" 44L-100", "2mm,400,0,0")},
        {"no pulses", "1\n" + Record(" 44L-100", "2,,0,0")},
        {"a text for a stroke", "1\n" + Record(" 44L-1x0")},
        {"a text for the count", "nothing that counts\n"},
        {"a count below nothing", "-1\n"},
        {"no text at all", "\x01\x02\xFF\n"},
        {"one endless line", std::string(1 << 20, '7')},
        {"seven sizes", sevenSizes},
        {"seven speeds", sevenSpeeds},
    };
    for (const auto& [name, text] : files) {
        SCOPED_TRACE(name);
        writeList(ListOf(3));
        ASSERT_EQ(LoadDeviceList(), 0);
        EXPECT_FALSE(IsSet(DeviceListFailed[0]));
        writeList(text);
        platform.expectBox(kNoListTwoLines);
        EXPECT_EQ(LoadDeviceList(), 1);
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            EXPECT_TRUE(IsSet(DeviceListFailed[axis]));
            EXPECT_TRUE(DeviceListTables[axis].rows.empty());
            EXPECT_TRUE(DeviceListTables[axis].sizes.empty());
        }
        platform.checkAllAsked();
    }
    removeList();
    platform.expectBox(kNoListTwoLines);
    EXPECT_EQ(LoadDeviceListSizes(), 1);
}

TEST_F(DeviceList, AFailedAxisIsMarkedAloneAndAGoodLoadClearsTheMark) {
    platform.expectBox(kNoListTwoLines);
    EXPECT_EQ(LoadDeviceListAxis(1), 1);
    EXPECT_EQ(DeviceListFailed, (std::array<Flag, kAxes>{kClear, kSet, kClear, kClear}));
    for (const int axis : {-1, 4}) {
        platform.expectBox(kNoListTwoLines);
        EXPECT_EQ(LoadDeviceListAxis(axis), 1);
    }
    writeList(ListOf(1));
    EXPECT_EQ(LoadDeviceListAxis(1), 0);
    EXPECT_FALSE(IsSet(DeviceListFailed[1]));
}

TEST_F(DeviceList, TheLimitsThemselvesAreGood) {
    writeList(ListOf(99));
    EXPECT_EQ(LoadDeviceList(), 0);
    EXPECT_EQ(DeviceInList(" 44", "L", 198), 0) << "the last of 99 records";
    writeList("0\n");
    EXPECT_EQ(LoadDeviceList(), 0);
    EXPECT_TRUE(DeviceListTables[0].rows.empty());
    EXPECT_EQ(DeviceInList(" 44", "L", 198), 1);
}

TEST_F(DeviceList, LookupsFindTheFirstRecordOfAKey) {
    writeList("3\n" + Record(" 44L-050", "2,400,1,2") + Record(" 44L-050", "6,192,0,0") +
              Record(" 44H-050", "6,400,0,1"));
    EXPECT_EQ(DeviceInList(" 44", "L", 50), 0);
    EXPECT_EQ(PgOptionCode(" 44", "L", 50), 1);
    EXPECT_EQ(VerticalOptionCode(" 44", "L", 50), 2);
    EXPECT_EQ(FindDeviceLeadPpr(" 44", "L", 50), 0);
    EXPECT_EQ(FoundLeadPpr.lead, 2);
    EXPECT_EQ(FoundLeadPpr.ppr, 400);
    EXPECT_EQ(GetDeviceLeadPpr(" 44", "H", 50).lead, 6);

    // Size and speed are texts: a missing blank or a small letter is another device.
    for (const auto& [size, speed] : {std::pair{"44", "L"}, {" 44", "l"}, {" 52", "L"}}) {
        EXPECT_EQ(DeviceInList(size, speed, 50), 1);
        EXPECT_EQ(PgOptionCode(size, speed, 50), 99);
        EXPECT_EQ(VerticalOptionCode(size, speed, 50), 99);
        EXPECT_EQ(FindDeviceLeadPpr(size, speed, 50), 1);
        EXPECT_EQ(GetDeviceLeadPpr(size, speed, 50).ppr, 0);
    }
    EXPECT_EQ(FoundLeadPpr.lead, 2) << "a lookup that finds nothing leaves the pair";
}

TEST_F(DeviceList, AnOptionThatCantBeReadIsUnknown) {
    writeList("1\n" + Record(" 44L-050", "2,400,yes,70000"));
    EXPECT_EQ(LoadDeviceList(), 0);
    EXPECT_EQ(DeviceInList(" 44", "L", 50), 0);
    EXPECT_EQ(PgOptionCode(" 44", "L", 50), kOptionUnknown);
    EXPECT_EQ(VerticalOptionCode(" 44", "L", 50), kOptionUnknown);
}

TEST_F(DeviceList, EachLookupReadsTheFileAnew) {
    writeList("1\n" + Record(" 44L-100", "2,400,0,0"));
    EXPECT_EQ(PgOptionCode(" 44", "L", 100), 0);
    writeList("1\n" + Record(" 44L-100", "2,400,1,0"));
    EXPECT_EQ(PgOptionCode(" 44", "L", 100), 1);
}

TEST_F(DeviceList, LookupsTellAMissingListInOneLineOrTwo) {
    for (const std::string& text : {std::string("no file"), ListOf(100), std::string("2\n")}) {
        removeList();
        if (text != "no file") {
            writeList(text);
        }
        platform.expectBox(kNoListTwoLines);
        const LeadPpr pair = GetDeviceLeadPpr(" 44", "L", 100);
        EXPECT_EQ(pair.lead, 0);
        EXPECT_EQ(pair.ppr, 0);
        platform.expectBox(kNoListTwoLines);
        EXPECT_EQ(FindDeviceLeadPpr(" 44", "L", 100), 1);
        platform.expectBox(kNoList);
        EXPECT_EQ(DeviceInList(" 44", "L", 100), 1);
        platform.expectBox(kNoList);
        EXPECT_EQ(PgOptionCode(" 44", "L", 100), 99);
        platform.expectBox(kNoList);
        EXPECT_EQ(VerticalOptionCode(" 44", "L", 100), 99);
    }
}

TEST_F(DeviceList, ASeventhSizeDoesNotDisturbALookup) {
    std::string text = "7\n";
    for (int i = 0; i < 7; ++i) {
        text += Record(" 4" + std::to_string(i) + "L-100");
    }
    writeList(text);
    EXPECT_EQ(DeviceInList(" 46", "L", 100), 0);
}

TEST_F(DeviceList, KeyLimits) {
    struct Case {
        std::string size;
        std::string speed;
        std::int16_t stroke;
        int result;
    };
    for (const Case& c : {Case{" 44", "L", 10, 0},
                          {" 44", "L", 500, 0},
                          {" 44", "L", 9, 1},
                          {" 44", "L", 501, 1},
                          {" 44", "A", 100, 0},
                          {" 44", "Z", 100, 0},
                          {" 44", "@", 100, 1},
                          {" 44", "[", 100, 1},
                          {" 44", "l", 100, 1},
                          {" 44", "", 100, 1},
                          {"44", "L", 100, 1},
                          {" J52", "L", 100, 1},
                          {" 44", "L", -100, 1}}) {
        EXPECT_EQ(CheckDeviceKey(c.size, c.speed, c.stroke), c.result)
            << c.size << c.speed << c.stroke;
    }
}

} // namespace
} // namespace qdw8::test
