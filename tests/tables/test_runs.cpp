#include "app/number_forms.h"
#include "link/line_state.h"
#include "platform/whole_file.h"
#include "support/every_step.h"
#include "tables/table_file.h"
#include "tables/table_transfer.h"
#include "tables_bench.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace qdw8::test {
namespace {

/// The macros differ from what the controller holds, and are edited.
struct EditedBench : TablesBench {
    EditedBench() {
        ChooseSmCommand(0, 3);
        EditSmData(0, "2");
    }
    static std::string inController(const qdk8::Memory& memory) {
        return std::accumulate(memory.macros.begin(), memory.macros.end(), std::string());
    }
};

std::string Text(Held copy) {
    std::string text;
    for (const std::int16_t number : TakeMacros(copy)) {
        text += HexField(number, 1);
    }
    return text;
}

/// Faults that an exchange, and with it a run, ends by, each in a way of its own.
const std::vector<std::string> kFaults{"dumb",     "hangup",   "silence",
                                       "error=03", "previous", "stray"};

TEST(Macros, AReadAtEveryStepTakesAllOrNothing) {
    EveryStep<EditedBench>(
        [](EditedBench&) { RunTableCommand(Macros(), SmCommands()[0]); },
        [](EditedBench& bench, const Step& step) {
            const std::string came = bench.inController(bench.line.controller.machine().working);
            EXPECT_TRUE(SmState.unsaved ? !step.boxes.empty() : Text(Held::Shown) == came);
            EXPECT_TRUE(!SmState.unsaved || Text(Held::Shown) == "32" + std::string(638, '0'));
            EXPECT_EQ(Text(Held::Compare), SmState.unsaved ? std::string(640, '0') : came);
            EXPECT_FALSE(SmState.unsaved && step.fault.empty());
        },
        kFaults);
}

TEST(Macros, AWriteAtEveryStepCommitsAllOrNothing) {
    const std::string old = EditedBench::inController(qdk8::StartMemory());
    EveryStep<EditedBench>([](EditedBench&) { RunTableCommand(Macros(), SmCommands()[1]); },
                           [&old](EditedBench& bench, const Step& step) {
                               const qdk8::Machine& machine = bench.line.controller.machine();
                               const bool done = !SmState.unsaved;
                               EXPECT_EQ(Text(Held::Shown), "32" + std::string(638, '0'));
                               EXPECT_EQ(bench.inController(machine.lasting),
                                         done || machine.commits > 0 ? Text(Held::Shown) : old);
                               EXPECT_TRUE(done || (!step.fault.empty() && !step.boxes.empty()));
                               EXPECT_TRUE(machine.mode == 0 || !LineAnswers ||
                                           step.frame == "0CM00");
                           },
                           kFaults);
}

TEST(Macros, AVerifyAtEveryStepReportsOnlyWhatCameWhole) {
    const auto verify = std::find_if(SmCommands().begin(), SmCommands().end(), [](const auto& one) {
        return one.routine == VerifyWithController;
    });
    EveryStep<EditedBench>([&verify](EditedBench&) { RunTableCommand(Macros(), *verify); },
                           [](EditedBench&, const Step& step) {
                               ASSERT_EQ(step.boxes.size(), 1U);
                               EXPECT_EQ(step.boxes[0].starts_with("Result of Verify - NG"),
                                         step.fault.empty());
                               EXPECT_EQ(Text(Held::Shown), "32" + std::string(638, '0'));
                           },
                           {"error=03", "short"});
}

/// Tables made by chance, the same in every run: what holds for one of them holds for any.
class AnyTable : public TablesTest {
protected:
    std::int16_t pick(int lowest, int highest) {
        return static_cast<std::int16_t>(std::uniform_int_distribution(lowest, highest)(random));
    }
    /// Comes back the same from a file, byte for byte, and from the controller.
    void survives(const SmallTable& table) {
        const Numbers numbers = table.take(Held::Shown);
        ASSERT_EQ(table.check(), 0);
        const auto comesBack = [&](auto&& read) {
            table.put(Held::Shown, Numbers(numbers.size()));
            table.put(Held::Compare, Numbers(numbers.size()));
            read();
            CopyTable(table, Held::Compare, Held::Shown);
            EXPECT_EQ(table.take(Held::Shown), numbers);
        };
        ASSERT_EQ(WriteTableFile(table, pathOf("a")), 0);
        comesBack([&] { EXPECT_EQ(ReadTableFile(table, pathOf("a")), FileRead::Good); });
        ASSERT_EQ(WriteTableFile(table, pathOf("b")), 0);
        EXPECT_EQ(ReadWholeFile(pathOf("a")), ReadWholeFile(pathOf("b")));
        const LineBatch batch;
        ASSERT_EQ(WriteTableToCt(table, TakeTableFrames(table)), LineResult::Done);
        comesBack([&] { EXPECT_EQ(ReadTableFromCt(table), LineResult::Done); });
    }

    std::mt19937 random{4711}; // NOLINT: the same in every run
};

TEST_F(AnyTable, SurvivesFileAndController) {
    for (int round = 0; round < 30; ++round) {
        for (GrpRow& group : GrpTable) {
            group.start = pick(1, 999);
            group.end = pick(group.start, 999);
        }
        survives(Groups());
        for (SmStep& step : SmTable[1 + static_cast<std::size_t>(round) % kMacros]) {
            step.command = pick(0, 6);
            step.data = pick(CommandOf(step).lowest, CommandOf(step).highest);
        }
        survives(Macros());
    }
}

} // namespace
} // namespace qdw8::test
