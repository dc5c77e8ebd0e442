#include "parameter/para_transfer.h"

#include "app/number_forms.h"
#include "app/screens.h"
#include "app/transfer_dialog.h"
#include "parameter/para_blocks.h"
#include "parameter/para_file.h"
#include "parameter/para_rows.h"
#include "parameter/parameter_fixture.h"

#include <utility>

namespace qdw8::test {
namespace {

const std::vector<int> kAll = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
const std::vector<int> kDevice = {5, 6, 7, 8, 9, 10, 11, 12};

bool InUse(int block, int mask) {
    static const std::array<int, 13> axisOf = {-1, 0, 1, 2, 3, 0, 0, 1, 1, 2, 2, 3, 3};
    const int axis = axisOf.at(static_cast<std::size_t>(block));
    return axis < 0 || (mask >> axis & 1) != 0;
}

std::string Hex(int digit) {
    return std::string(1, "0123456789ABC"[digit]);
}

class Transfer : public ParameterLineTest {
protected:
    Transfer() { ParaSet = SampleSet(); }

    static std::int16_t readAndApply() {
        return ReadAllBlocks() == 0 && ApplyRowTable(RowSource::Controller) == 0 ? std::int16_t{0}
                                                                                 : std::int16_t{1};
    }
};

TEST_F(Transfer, TheStartMachineIsRead) {
    ASSERT_EQ(readAndApply(), 0);
    EXPECT_EQ(ParaSet.SEQ, (AxisWords{1, 2, 2, 3}));
    EXPECT_EQ(ParaSet.OFFSET, (AxisNumbers{400, 200, 200, 192}));
    EXPECT_EQ(ParaSet.PUSH[1], 80);
    EXPECT_EQ(ParaSet.VEL[1], 10);
    EXPECT_EQ(ParaSet.OFSVEL[1], 5);
    EXPECT_EQ(ParaSet.PUSHVEL[1], 3);
    EXPECT_EQ(ParaSet.JOGVEL[1], 15);
    EXPECT_EQ(ParaSet.ALM[2], 400);
    EXPECT_EQ(ParaSet.PG_TIMER[2], 10);
    EXPECT_EQ(ParaSet.LS_SERCH_TIMER[2], 30);
    EXPECT_EQ(ParaSet.SOFT_LIMIT[3], 1);
    EXPECT_EQ(ParaSet.STROKE, (AxisNumbers{15000, 20000, 20000, 4800}));
    EXPECT_EQ(ParaSet.LEAD, (AxisWords{8, 2, 2, 8}));
    EXPECT_EQ(ParaSet.PULSE, (AxisLongs{400, 400, 400, 192}));
    EXPECT_EQ(ParaSet.TYPE, (AxisWords{1, 1, 1, 1}));
    EXPECT_EQ(ParaSet.Actuator,
              (std::array<std::string, kAxes>{" 61H300", " 44L100", "J52L100", " 61F200"}));
    EXPECT_EQ(ParaSet.parts[2], (ActuatorParts{"J52", "L", 100}));
    EXPECT_EQ(ParaSet.ALM_CODE, 1);
    EXPECT_EQ(ParaSet.GRP_ENABLE, 1);
    EXPECT_EQ(ParaSet.SM_TIMER, 50);
    EXPECT_EQ(ParaSet.AXIS, 15);
    for (std::size_t cell = 0; cell < 31; ++cell) {
        EXPECT_EQ(ParaReserved[cell], 0x40 + cell);
    }
    EXPECT_EQ(ParaReserved[31] + ParaReserved[32], 0);
}

TEST_F(Transfer, TheBytesOfTheBlocks) {
    ParaSet.OFFSET = {255, 256, 1, 65535};
    ParaSet.PUSH[0] = 10;
    ParaSet.VEL[0] = 60;
    ParaSet.OFSVEL[0] = 1;
    ParaSet.PUSHVEL[0] = 16;
    ParaSet.JOGVEL[0] = 30;
    ParaSet.ALM[0] = 4096;
    ParaSet.PG_TIMER[0] = 255;
    ParaSet.LS_SERCH_TIMER[0] = 0;
    ParaSet.SOFT_LIMIT[0] = 1;
    ParaSet.AUTODRIVE[0] = 0;
    ParaSet.M0_DISABLE[0] = 1;
    ParaReserved[7] = 0xAB;
    ParaReserved[8] = 0xCD;
    EXPECT_EQ(BuildParaBlock(5, ReservedMap::AsRead), "00FF0A3C01101E1000FF00010001ABCD");
    EXPECT_EQ(BuildParaBlock(7, ReservedMap::AsRead).substr(0, 4), "0100");

    ParaSet.TYPE[2] = 5;
    ParaSet.LEAD[2] = 8;
    ParaSet.PULSE[2] = 192;
    ParaSet.FUNCTION[2] = 2;
    ParaSet.STROKE[2] = 262143;
    ParaSet.parts[2] = {"J52", "H", 500};
    EXPECT_EQ(BuildParaBlock(10, ReservedMap::AsRead), "050800C00203FFFF344501F400000000");
    ParaSet.parts[2] = {" 44", "L", 50};
    for (const auto& [stroke, bytes] :
         std::vector<std::pair<double, std::string>>{{0, "000000"},
                                                     {10, "00000A"},
                                                     {255, "0000FF"},
                                                     {4095, "000FFF"},
                                                     {65535, "00FFFF"},
                                                     {65536, "010000"},
                                                     {2.5, "000002"}}) {
        ParaSet.STROKE[2] = stroke;
        EXPECT_EQ(BuildParaBlock(10, ReservedMap::AsRead),
                  "050800C002" + bytes + "2C4C003200000000");
    }

    ParaSet.SEQ[3] = 9;
    EXPECT_EQ(BuildParaBlock(4, ReservedMap::AsRead), "09" + std::string(30, '0'));

    ParaSet.HOME_OUT = 3;
    ParaSet.AUTO_HOME = 1;
    ParaSet.ALM_CODE = 0;
    ParaSet.GRP_ENABLE = 1;
    ParaSet.SM_TIMEOUT = 0;
    ParaSet.SM_TIMER = 255;
    ParaSet.AXIS = 10;
    ParaSet.STOP_PAUSE = 1;
    ParaSet.ACC_DCC = 18;
    EXPECT_EQ(BuildParaBlock(0, ReservedMap::AsRead), "0301000100FF0A011200000000000000");
}

TEST_F(Transfer, AnyValidSetComesBackFromTheController) {
    std::mt19937 random(53);
    for (int i = 0; i < 64; ++i) {
        SetAxisOffByMask(AxisOff, i % 16);
        ParameterSet set = RandomSet(random);
        ParaSet = set;
        // Of an axis out of use nothing comes back.
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            if (IsSet(AxisOff[axis])) {
                for (const ParaItem& item : ParaItems()) {
                    if (item.perAxis()) {
                        SetParaValue(set, item, axis, 0);
                    }
                }
                set.Actuator[axis].clear();
                set.parts[axis] = {};
            }
        }
        ASSERT_EQ(WriteAllBlocks(), 0);
        line.controller.powerOff(platform.now);
        line.controller.powerOn(platform.now);
        ParaSet = ParameterSet{};
        ASSERT_EQ(readAndApply(), 0);
        ASSERT_EQ(ParaSet, set) << i;
    }
}

TEST_F(Transfer, ReservedBytesGoBackWhereTheyCameFrom) {
    std::mt19937 random(99);
    const auto byte = [&random] { return std::uniform_int_distribution<int>(0, 255)(random); };
    const auto put = [&](std::string& digits, std::size_t from, std::size_t to) {
        for (std::size_t at = from; at <= to; ++at) {
            char text[3];
            std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(byte()));
            digits.replace(2 * at, 2, text);
        }
    };
    for (int i = 0; i < 30; ++i) {
        std::array<std::string, 13> blocks = working();
        put(blocks[0], 9, 15);
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            put(blocks[1 + axis], 1, 15);
            put(blocks[5 + 2 * axis], 14, 15);
            put(blocks[6 + 2 * axis], 12, 15);
        }
        for (int block = 0; block < 13; ++block) {
            line.controller.setBlock(block, blocks[static_cast<std::size_t>(block)]);
        }
        ASSERT_EQ(readAndApply(), 0);
        ASSERT_EQ(WriteAllBlocks(), 0);
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            blocks[1 + axis].replace(2, 30, std::string(30, '0'));
        }
        ASSERT_EQ(working(), blocks) << i;
        ASSERT_EQ(lasting(), blocks) << i;
    }
}

TEST_F(Transfer, ADeviceWriteTakesItsReservedBytesElsewhere) {
    // The start machine holds 40 (hex) + cell in each reserved byte.
    const auto before = working();
    ASSERT_EQ(readAndApply(), 0);
    ASSERT_EQ(WriteDeviceBlocks(), 0);
    const auto& after = working();
    const std::vector<std::pair<std::size_t, std::string>> ends = {
        {5, "494A"},     {7, "4F50"},     {9, "5556"},      {11, "5B5C"},
        {6, "494A4B4C"}, {8, "51525354"}, {10, "5758595A"}, {12, "5D5E0000"}};
    for (const auto& [block, end] : ends) {
        EXPECT_EQ(after[block].substr(32 - end.size()), end) << block;
        EXPECT_EQ(after[block].substr(0, 32 - end.size()),
                  before[block].substr(0, 32 - end.size()));
    }
    for (std::size_t block = 0; block < 5; ++block) {
        EXPECT_EQ(after[block], before[block]);
    }
    EXPECT_EQ(lasting(), after);
}

TEST_F(Transfer, ADeviceWriteSendsWhateverStandsInItsCells) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    // Of each axis the first cell of the homing block, and that of the device block.
    const std::vector<std::pair<std::size_t, std::size_t>> firsts = {
        {9, 9}, {15, 17}, {21, 23}, {27, 29}};
    for (int i = 0; i < 20; ++i) {
        for (std::uint8_t& cell : ParaReserved) {
            cell = static_cast<std::uint8_t>(byte(random));
        }
        const auto digits = [](std::size_t first, std::size_t count) {
            std::string text;
            for (std::size_t cell = first; cell < first + count; ++cell) {
                text += HexField(ParaReserved.at(cell), 2);
            }
            return text;
        };
        ASSERT_EQ(WriteDeviceBlocks(), 0);
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            EXPECT_EQ(working()[5 + 2 * axis].substr(28), digits(firsts[axis].first, 2));
            EXPECT_EQ(working()[6 + 2 * axis].substr(24), digits(firsts[axis].second, 4));
        }
    }
}

TEST_F(Transfer, OnlyBlocksOfAxesInUseMove) {
    const auto start = working();
    for (int mask = 0; mask < 16; ++mask) {
        SCOPED_TRACE(mask);
        for (const int block : kAll) {
            line.controller.setBlock(block, start[static_cast<std::size_t>(block)]);
        }
        SetAxisOffByMask(AxisOff, mask);
        ParaReserved.fill(0x77);
        forgetFrames();
        std::vector<std::string> reads;
        std::vector<std::string> writes;
        std::vector<std::string> deviceWrites;
        for (const int block : kAll) {
            if (InUse(block, mask)) {
                reads.push_back("0RD" + Hex(block));
                writes.push_back("0WD" + Hex(block));
            }
        }
        for (const int block : kDevice) {
            if (InUse(block, mask)) {
                deviceWrites.push_back("0WD" + Hex(block));
            }
        }
        writes.emplace_back("0WE2");
        deviceWrites.emplace_back("0WE2");
        const auto words = [this] {
            std::vector<std::string> first;
            for (const std::string& frame : platform.sent) {
                first.push_back(frame.substr(0, 4));
            }
            platform.sent.clear();
            return first;
        };
        ASSERT_EQ(readAndApply(), 0);
        EXPECT_EQ(words(), reads);
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const bool in = (mask >> axis & 1) != 0;
            EXPECT_EQ(ParaReserved[7 + 6 * axis] == 0x77, !in);
            EXPECT_EQ(ParaReserved[12 + 6 * axis] == 0x77, !in);
            EXPECT_EQ(ParaSet.Actuator[axis].empty(), !in);
        }
        ASSERT_EQ(WriteAllBlocks(), 0);
        EXPECT_EQ(words(), writes);
        ASSERT_EQ(WriteDeviceBlocks(), 0);
        EXPECT_EQ(words(), deviceWrites);
    }
}

TEST_F(Transfer, TheBarCountsSkippedBlocksToo) {
    AxisOff = {kClear, kSet, kSet, kSet};
    TransferRunFlag = kSet;
    std::vector<int> steps;
    std::string text;
    Screens().frmTrance = [&] {
        if (TheTransferDialog().shown) {
            steps.push_back(TheTransferDialog().prgBar1);
            text = TheTransferDialog().lblSetumei;
            EXPECT_FALSE(TheTransferDialog().cancelShown);
        }
    };
    ASSERT_EQ(ReadAllBlocks(), 0);
    EXPECT_EQ(steps, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
    EXPECT_EQ(text, "Reading data from controller...");
    steps.clear();
    ASSERT_EQ(WriteAllBlocks(), 0);
    EXPECT_EQ(steps, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ(text, "Sending Data to the controller...");
    steps.clear();
    ASSERT_EQ(WriteDeviceBlocks(), 0);
    EXPECT_EQ(steps, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST_F(Transfer, ADeadLineAtAnyStepOfAReadChangesNothing) {
    const ParaRows rows = ParaRowTable;
    for (int step = 1; step <= 13; ++step) {
        SCOPED_TRACE(step);
        forgetFrames();
        GoOnLine();
        addFault("0RD:" + std::to_string(step) + "+:silence");
        platform.expectBox(kTimeout);
        EXPECT_EQ(ReadAllBlocks(), 1);
        platform.checkAllAsked();
        EXPECT_EQ(platform.sent.size(), static_cast<std::size_t>(step) + 5) << "six tries";
        EXPECT_EQ(ParaRowTable, rows);
        EXPECT_EQ(ParaReserved, ReservedBytes{});
        EXPECT_EQ(OffLineFlag, kSet);
        expectQuiet();
    }
}

TEST_F(Transfer, ADeadLineAtAnyStepOfAWriteCommitsNothing) {
    const auto before = lasting();
    for (int step = 1; step <= 14; ++step) {
        SCOPED_TRACE(step);
        forgetFrames();
        GoOnLine();
        addFault("*:" + std::to_string(step) + "+:deaf");
        platform.expectBox(kTimeout);
        EXPECT_EQ(WriteAllBlocks(), 1);
        platform.checkAllAsked();
        EXPECT_EQ(platform.sent.size(), static_cast<std::size_t>(step) + 5);
        EXPECT_EQ(lasting(), before);
        expectQuiet();
    }
    for (int step = 1; step <= 9; ++step) {
        forgetFrames();
        GoOnLine();
        addFault("*:" + std::to_string(step) + "+:deaf");
        platform.expectBox(kTimeout);
        EXPECT_EQ(WriteDeviceBlocks(), 1) << step;
        EXPECT_EQ(lasting(), before);
    }
}

TEST_F(Transfer, AReplyOfAnotherBlockEndsTheTransfer) {
    for (int step = 2; step <= 13; ++step) {
        SCOPED_TRACE(step);
        forgetFrames();
        addFault("0RD:" + std::to_string(step) + ":previous");
        platform.expectBox(kWrongData);
        EXPECT_EQ(ReadAllBlocks(), 1);
        EXPECT_EQ(ParaRowTable, ParaRows{});

        forgetFrames();
        addFault("0WD:" + std::to_string(step) + ":previous");
        platform.expectBox(kWrongData);
        EXPECT_EQ(WriteAllBlocks(), 1);
        EXPECT_EQ(line.controller.count("0WD"), step);
        EXPECT_EQ(line.controller.count("0WE"), 0);
        EXPECT_FALSE(TheTransferDialog().shown);
    }
    forgetFrames();
    addFault("0WE:1:reply=0WE3");
    platform.expectBox(kWrongData);
    EXPECT_EQ(WriteDeviceBlocks(), 1);
}

TEST_F(Transfer, ABlockThatIsNoNumberIsRefusedWhole) {
    for (const char* rule : {"0RDC:1:reply=0RDC01080190000012C03D480G2C00000000",
                             "0RDC:1:reply=0RDC0108019000001XC03D48012C00000000",
                             // a stroke that 16 bits don't hold
                             "0RDC:1:reply=0RDC0108019000003A983D48FFFF00000000"}) {
        forgetFrames();
        addFault(rule);
        platform.expectBox(kWrongData);
        EXPECT_EQ(ReadAllBlocks(), 1) << rule;
        EXPECT_EQ(ParaRowTable, ParaRows{});
        EXPECT_EQ(ParaReserved, ReservedBytes{});
    }
}

TEST_F(Transfer, AValueTooWideForItsByteSendsNothing) {
    ParaSet.ACC_DCC = 256;
    platform.expectBox(kInvalid);
    EXPECT_EQ(WriteAllBlocks(), 1);
    EXPECT_TRUE(platform.sent.empty());
    EXPECT_EQ(WriteDeviceBlocks(), 0) << "which doesn't send it";
}

TEST_F(Transfer, TheMaskAloneIsChanged) {
    const std::string before = working()[0];
    for (int mask = 0; mask < 16; ++mask) {
        SetAxisOffByMask(AxisOff, 15 - mask);
        std::string expected = before;
        ParaSet.AXIS = 99;
        ASSERT_EQ(WriteAxisMask(mask), 0);
        expected.replace(12, 2, "0" + std::string(1, "0123456789ABCDEF"[mask]));
        EXPECT_EQ(working()[0], expected);
        EXPECT_EQ(ParaSet.AXIS, 99);
        ASSERT_EQ(WriteAxisMask(), 0);
        EXPECT_EQ(ParaSet.AXIS, 15 - mask);
        EXPECT_EQ(qdk8::AxisMask(line.controller.machine().working),
                  15U - static_cast<unsigned>(mask));
    }
    EXPECT_EQ(lasting()[0], before) << "nothing was committed";
    EXPECT_EQ(line.controller.count("0WE"), 0);
}

TEST_F(Transfer, AMaskThatWasNotWrittenIsNotBelieved) {
    ParaSet.AXIS = 3;
    struct Case {
        const char* rule;
        std::string box;
    };
    for (const Case& item : {Case{"0RD:1+:silence", kTimeout}, Case{"0WD:1+:deaf", kTimeout},
                             Case{"0WD:1:reply=0WD5", kWrongData}}) {
        forgetFrames();
        GoOnLine();
        addFault(item.rule);
        platform.expectBox(item.box);
        EXPECT_EQ(WriteAxisMask(), 1) << item.rule;
        EXPECT_EQ(ParaSet.AXIS, 3);
    }
}

} // namespace
} // namespace qdw8::test
