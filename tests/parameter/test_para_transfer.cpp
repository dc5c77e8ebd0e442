#include "parameter/para_transfer.h"

#include "link/receiver.h"
#include "parameter/para_blocks.h"
#include "parameter/para_fields.h"
#include "parameter/para_file.h"
#include "parameter/para_rows.h"
#include "parameter/parameter_bench.h"

#include <algorithm>
#include <numeric>

namespace qdw8::test {
namespace {

struct TransferBench : ParameterBench {
    TransferBench() { GoOnLine(); }
    std::int16_t readAndApply() {
        return ReadAllBlocks() == 0 && ApplyRowTable(RowSource::Controller) == 0 ? 0 : 1;
    }
    /// The blocks that went since the last call, "056", and "!" for the commit.
    std::string moved() {
        std::string all;
        for (const std::string& frame : platform.sent) {
            all += frame.starts_with("0WE") ? "!" : frame.substr(3, 1);
        }
        platform.sent.clear();
        return all;
    }
};
using Transfer = Unit<TransferBench>;

// Every number and every reserved byte is another one, so that none can stand for its neighbour.
TEST_F(Transfer, TheBytesOfTheBlocks) {
    int next = 1;
    EachItem([&next](const ParaItem& item, std::size_t axis) {
        SetParaValue(ParaSet, item, axis, next++);
    });
    ParaSet.OFFSET[0] = 0x1234;
    ParaSet.PULSE[1] = 0x5678;
    ParaSet.ALM[2] = 0x9ABC;
    ParaSet.STROKE = {0x3FFFF, 0x12345, 2.5, 1};
    ParaSet.parts[3] = {"J44", "L", 500}; // the number that the digits make
    std::iota(ParaReserved.begin(), ParaReserved.end(), std::uint8_t{0xA0});
    std::string blocks;
    for (int block = 0; block < 13; ++block) {
        blocks += BuildParaBlock(block, ReservedMap::AsRead) + "\n";
    }
    EXPECT_EQ(blocks, ReadWholeFile(kHere + "blocks.txt"));
    ParaSet = SampleSet();
    ParaSet.ACC_DCC = 256;
    platform.expectBox(BoxText("invalid"));
    EXPECT_EQ(WriteAllBlocks(), 1);
    EXPECT_TRUE(platform.sent.empty()) << "a value too wide for its byte sends nothing";
    EXPECT_EQ(WriteDeviceBlocks(), 0) << "which doesn't send it";
}

ParameterSet Merged(const ParameterSet& ofAxesInUse, ParameterSet set) {
    EachItem([&](const ParaItem& item, std::size_t axis) {
        if (!item.perAxis() || !IsSet(AxisOff[axis])) {
            SetParaValue(set, item, axis, ParaValue(ofAxesInUse, item, axis));
        }
        if (!IsSet(AxisOff[axis])) {
            set.parts[axis] = ofAxesInUse.parts[axis];
            set.Actuator[axis] = ofAxesInUse.Actuator[axis];
        }
    });
    return set;
}

// Of the axes in use alone, but for a file, which keeps every axis. A file and the fields know no
// acceleration, and the fields show no row for two kinds of actuator.
TEST_F(Transfer, AnyValidSetComesBackFromControllerFileAndFields) {
    const std::string owners = "-012300112233"; // axis of each block
    std::mt19937 random(53);
    for (int i = 0; i < 48; ++i) {
        SCOPED_TRACE(i);
        SetAxisOffByMask(AxisOff, i % 16);
        std::string all = "0";
        for (std::size_t block = 1; block < owners.size(); ++block) {
            all +=
                (i >> (owners[block] - '0') & 1) != 0 ? std::string(1, "0123456789ABC"[block]) : "";
        }
        ParameterSet set = ParaSet = RandomSet(random);
        ParaReserved.fill(0x77);
        ASSERT_EQ(WriteAllBlocks(), 0);
        EXPECT_EQ(moved(), all + "!");
        line.controller.powerOff(platform.now);
        line.controller.powerOn(platform.now);
        ParaSet = ParameterSet{};
        ParaReserved.fill(0x88);
        ASSERT_EQ(readAndApply(), 0);
        EXPECT_EQ(moved(), all);
        ASSERT_EQ(ParaSet, Merged(set, {}));
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            EXPECT_EQ(ParaReserved[7 + 6 * axis], IsSet(AxisOff[axis]) ? 0x88 : 0x77);
            EXPECT_EQ(ParaReserved[12 + 6 * axis], IsSet(AxisOff[axis]) ? 0x88 : 0x77);
        }
        ASSERT_EQ(WriteDeviceBlocks(), 0);
        EXPECT_EQ(moved(), all.substr(std::min(all.find_first_of("56789ABC"), all.size())) + "!");
        ParaSet = set;
        ASSERT_EQ(WriteParaFile(pathOf("any.pmt")), 0);
        ParaSet = ParameterSet{};
        ASSERT_EQ(ReadParaFile(pathOf("any.pmt")) + ApplyRowTable(RowSource::File), 0);
        set.ACC_DCC = 0;
        ASSERT_EQ(ParaSet, set);
        ParametaHyoji();
        ParameterSet other = ParaSet = RandomSet(random);
        set.ACC_DCC = other.ACC_DCC;
        std::replace_if(
            set.TYPE.begin(), set.TYPE.end(), [](int type) { return type > 3; }, 0);
        ASSERT_EQ(TorikomiParametaValue(), 0);
        ASSERT_EQ(ParaSet, Merged(set, other));
    }
}

// The start machine holds 40 (hex) + cell in each reserved byte.
TEST_F(Transfer, ReservedBytesGoBackWhereTheyCameFrom) {
    ASSERT_EQ(readAndApply(), 0);
    for (std::size_t cell = 0; cell < 31; ++cell) {
        EXPECT_EQ(ParaReserved[cell], 0x40 + cell);
    }
    auto before = working();
    ASSERT_EQ(WriteAllBlocks(), 0);
    EXPECT_EQ(lasting(), before);
    ASSERT_EQ(WriteDeviceBlocks(), 0);
    const std::vector<std::pair<std::size_t, std::string>> ends = {
        {5, "494A"},     {7, "4F50"},     {9, "5556"},      {11, "5B5C"},
        {6, "494A4B4C"}, {8, "51525354"}, {10, "5758595A"}, {12, "5D5E0000"}};
    for (const auto& [block, end] : ends) { // a device write takes them elsewhere
        before[block].replace(32 - end.size(), end.size(), end);
    }
    EXPECT_EQ(lasting(), before);
}

TEST_F(Transfer, TheMaskAloneIsChangedAndNotCommitted) {
    const std::string before = working()[0];
    AxisOff[2] = kSet;
    ParaSet.AXIS = 99;
    ASSERT_EQ(WriteAxisMask(9), 0);
    EXPECT_EQ(working()[0], before.substr(0, 12) + "09" + before.substr(14));
    EXPECT_EQ(ParaSet.AXIS, 99);
    ASSERT_EQ(WriteAxisMask(), 0);
    EXPECT_EQ(ParaSet.AXIS, 11);
    EXPECT_EQ(lasting()[0], before);
}

} // namespace
} // namespace qdw8::test
