#include "app/number_forms.h"
#include "app/screens.h"
#include "platform/fault.h"
#include "platform/whole_file.h"
#include "position/posi_file.h"
#include "position/posi_transfer.h"
#include "position/posi_verify.h"
#include "position/posi_write.h"
#include "position_bench.h"
#include "setup/posi_read.h"
#include "setup/posi_write.h"
#include "support/every_step.h"

#include <algorithm>

namespace qdw8::test {
namespace {

const std::string kSaveFirst = "Save the editing data before reading data?";
const std::string kRead = "Read the data from controller, OK?";
const std::string kSend = "Data is transmitted to controller,Yes?";
const std::string kDone = "Completed data transmit.";

/// A document of rows 1 to 25 that differs from what the controller holds, its current cell among
/// them.
struct TransferBench : PositionBench {
    TransferBench() {
        showRows(1, 25);
        for (int position = 1; position <= 25; ++position) {
            type(position, kPosi, std::to_string(100 + position));
        }
        GoToCell(7, 3);
        EXPECT_EQ(PosiDataCheck3(), PosiCheck::Committed);
    }
    void expectReadOf(std::int16_t first, std::int16_t last) {
        platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::No);
        expectRange("frmSelectPosiNo2", first, last);
        platform.expectBox(kRead, BoxButtons::OkCancel, BoxAnswer::Ok);
    }
    void expectWriteOf(std::int16_t first, std::int16_t last) {
        expectRange("frmSelectPosiNo3", first, last);
        platform.expectBox(kSend, BoxButtons::OkCancel, BoxAnswer::Ok);
    }
    void expectAsBefore() const {
        ExpectRanges(1, 25);
        EXPECT_EQ(cell(5, kPosi), "105");
        EXPECT_EQ(std::pair(flgdData().row, flgdData().col), std::pair(7, 3));
        ExpectAtRest(platform);
    }
    std::string fresh(int position) const {
        return PosiRowText(static_cast<std::int16_t>(position)).substr(3);
    }
};
using Transfer = Unit<TransferBench>;

TEST(Read, EveryStep) {
    EveryStep<TransferBench>(
        [](TransferBench& bench) {
            bench.expectReadOf(5, 7);
            ReadFromCt();
        },
        [](TransferBench& bench, const Step& step) {
            if (GridFirst == 5) {
                ExpectRanges(5, 7);
                EXPECT_EQ(bench.cell(5, kPosi) + bench.cell(7, kPosi), "1010");
            } else {
                bench.expectAsBefore();
                EXPECT_FALSE(step.fault.empty());
            }
        });
}

TEST(Write, EveryStep) {
    std::vector<std::string> before;
    EveryStep<TransferBench>(
        [&before](TransferBench& bench) {
            before = {bench.held(4), bench.held(5), bench.held(6), bench.held(7), bench.held(8)};
            bench.expectWriteOf(5, 7);
            WriteToCt();
        },
        [&before](TransferBench& bench, const Step& step) {
            bench.expectAsBefore();
            const bool done = std::count(step.boxes.begin(), step.boxes.end(), kDone) == 1;
            EXPECT_TRUE(done || !step.fault.empty());
            EXPECT_TRUE(!step.boxes.empty() || step.fault == "dumb") << "who gave up knows";
            EXPECT_FALSE(done && step.fault == "previous" && step.frame.starts_with("0WP"));
            int written = 0; // rows that came, from the first on, and none behind them
            while (written < 3 && bench.held(5 + written) == bench.fresh(5 + written)) {
                ++written;
            }
            EXPECT_TRUE(!done || written == 3);
            for (int position = 5 + written; position <= 8; ++position) {
                EXPECT_EQ(bench.held(position), before[static_cast<std::size_t>(position) - 4]);
            }
            EXPECT_EQ(bench.held(4), before[0]);
            if (step.fault.empty()) {
                EXPECT_EQ(bench.line.controller.machine().mode, 0);
            }
        });
}

TEST_F(Transfer, ACancelOrTheEndOfTheProgramEndsAtTheNextRow) {
    line.controller.setTurnaround(10);
    const auto atRow = [this](int row, const std::function<void()>& happens) {
        platform.onOutput = [row, happens, send = platform.onOutput](const std::string& text) {
            if (text.find(HexField(row, 3)) == 3) {
                happens();
            }
            send(text);
        };
    };
    const auto output = platform.onOutput;
    const auto endProgram = [] { ProgramEndFlag = kSet; };
    atRow(9, cmdTranceCancel_Click);
    expectReadOf(5, 20);
    platform.expectBox("Reading of data was stopped.");
    ReadFromCt();
    expectAsBefore();
    expectRange("frmSelectPosiNo3", 5, 20);
    PosiDataCtShogo(); // without a word
    expectAsBefore();
    expectWriteOf(5, 20); // a write can't be cancelled
    platform.expectBox(kDone);
    WriteToCt();
    EXPECT_EQ(held(20), fresh(20));
    line.controller.clearCounters();

    platform.onOutput = output;
    atRow(9, endProgram);
    expectReadOf(5, 20);
    ReadFromCt();
    ProgramEndFlag = kClear;
    type(12, kPosi, "7");
    expectWriteOf(5, 20);
    WriteToCt();
    EXPECT_EQ(line.controller.count("0RP"), 5);
    EXPECT_EQ(line.controller.count("0WP"), 5);
    EXPECT_NE(held(12), fresh(12));
    EXPECT_EQ(platform.sent.back(), "0CM00");
    expectAsBefore();
}

TEST_F(Transfer, AReadThatIsGivenUpTellsAsACancelledOne) {
    addFault("0RP:2:short");
    addFault("0CM0:*:silence");
    Screens().frmTrance = [] {
        if (TheTransferDialog().lblSetumei == OfferText()) {
            cmdTranceCancel_Click();
        }
    };
    expectReadOf(5, 20);
    platform.expectBox("Reading of data was stopped.");
    ReadFromCt();
    expectAsBefore();
}

TEST_F(Transfer, ASaveInTheMiddleOfAReadSavesTheGridAsItStands) {
    line.controller.setTurnaround(10);
    expectReadOf(5, 20);
    platform.after(100, [this] {
        expectRange("frmSelectPosiNo3", 2, 3);
        platform.expectBox("Write Data to the file,Yes?", BoxButtons::OkCancel, BoxAnswer::Ok);
        expectFile(FileQuestion::Kind::Save, "Save Position Data as ...", pathOf("mid.qdd"));
        EXPECT_EQ(std::pair(GridFirst, GridLast), std::pair(std::int16_t{1}, std::int16_t{25}));
        SavePosiFileAs();
    });
    ReadFromCt();
    EXPECT_NE(ReadWholeFile(pathOf("mid.qdd")).find("\r\n3,\" 30\",\" 3\",\" 0\",\" 103\""),
              std::string::npos);
    ExpectRanges(5, 20);
    EXPECT_EQ(cell(20, kPosi), "10");
}

TEST_F(Transfer, ARowWithoutAFormOnTheLineKeepsAllRowsBack) {
    for (const double wrong : {1048576.0, -1.0, 1e12}) {
        PosiTable[7].number[kPosi] = wrong;
        EXPECT_THROW(TakePosiFrames(), Fault);
    }
    PosiRowError[6] = kSet; // a marked row is left out
    PosiFirst = 6;
    EXPECT_EQ(WritePosidataToCt(TakePosiFrames()), LineResult::Done);
    EXPECT_EQ(platform.sent[1].substr(0, 6), "0WP008");
}

} // namespace
} // namespace qdw8::test
