#include "device/Module2Calc.h"
#include "platform/whole_file.h"
#include "position/grid_clipboard.h"
#include "position/posi_file.h"
#include "position/posi_reader.h"
#include "position/posi_transfer.h"
#include "position/posi_write.h"
#include "position_bench.h"

#include <random>

namespace qdw8::test {
namespace {

/// Tables made by chance, the same in every run: what holds for one of them holds for any.
class AnyTable : public PositionTest {
protected:
    int pick(int lowest, int highest) {
        return std::uniform_int_distribution(lowest, highest)(random);
    }

    /// Axes in use and actuators of any kind that the list knows.
    void pickDevices() {
        constexpr std::array<std::pair<int, int>, 5> kKinds{
            {{2, 400}, {6, 400}, {8, 192}, {20, 400}, {12, 600}}};
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            AxisOff[axis] = FlagOf(pick(0, 3) == 0);
            const auto [lead, ppr] = kKinds[static_cast<std::size_t>(pick(0, 4))];
            DevSetting[axis].DevLead = static_cast<std::int16_t>(lead);
            DevSetting[axis].DevPPR = static_cast<std::int16_t>(ppr);
            DevSetting[axis].DevStroke = static_cast<std::int16_t>(pick(1, 10) * 50);
            DevSetting[axis].DevSize = pick(0, 1) == 0 ? " 44" : " 61";
            DevSetting[axis].DevSpeed = DevSetting[axis].DevSize == " 61" ? "F" : "L";
        }
        Culc_MaxPulse();
        CalcMaxStrokeMm();
    }

    /// A grid of valid rows, in pulses.
    void pickRows() {
        static const std::array<std::string, 5> kComments{"", " with blanks ", "a,b", "原点へ移動",
                                                          "ｱｲｳ 100%"};
        const auto first = static_cast<std::int16_t>(pick(1, 999));
        showRows(first, static_cast<std::int16_t>(pick(first, std::min(first + 60, 999))));
        for (int position = GridFirst; position <= GridLast; ++position) {
            for (int column = 0; column < kComment; ++column) {
                const PosiLimits limits = LimitsOf(column);
                const PosiColumn& kind = ColumnOf(column);
                const int highest = kind.item == kPosi
                                        ? DevSetting[static_cast<std::size_t>(kind.axis)].MaxPulse
                                        : static_cast<int>(limits.highest);
                type(position, column,
                     std::to_string(pick(static_cast<int>(limits.lowest), highest)));
            }
            type(position, kComment, kComments[static_cast<std::size_t>(pick(0, 4))]);
        }
        ASSERT_EQ(PosiDataCheck3(), PosiCheck::Committed);
        QdDataHyoji_3(); // axes out of use show their fixed values from here on
    }

    std::mt19937 random{4711}; // NOLINT: the same in every run
};

TEST_F(AnyTable, SurvivesFileControllerClipboardAndUnit) {
    PosiFolder = folder;
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        DispMmFlag = kClear;
        pickDevices();
        pickRows();
        ASSERT_FALSE(HasFatalFailure());
        const auto shown = gridTexts();
        const std::int16_t first = GridFirst;
        const std::int16_t last = GridLast;
        const auto showStage = [&](auto&& read) {
            ASSERT_EQ(WritePosidataToCt(TakePosiFrames()), LineResult::Done);
            ClearPosiTable();
            ResetGrid();
            read();
            PosiStageToTable();
            ConvertTableToMm();
            QdDataHyoji_3();
            EXPECT_EQ(gridTexts(), shown);
        };
        ASSERT_EQ(SaveFileAs2("a.qdd"), 0);
        const std::string bytes = ReadWholeFile(pathOf("a.qdd"));
        PosiStage.fill({});
        showStage([&] { EXPECT_EQ(ReadPosiFile(pathOf("a.qdd")), 0); });
        EXPECT_EQ(std::pair(FileFirst, FileLast), std::pair(first, last));
        ASSERT_EQ(PosiDataCheck3(), PosiCheck::Committed);
        ASSERT_EQ(SaveFileAs2("b.qdd"), 0);
        EXPECT_EQ(ReadWholeFile(pathOf("b.qdd")), bytes);
        // The comments never travel: they stay what the file left.
        showStage([&] { EXPECT_EQ(ReadPosidataFromCt(), LineResult::Done); });

        flgdData_RowColChange(kGridHeadRows, 1, last - first + kGridHeadRows, 20);
        mnuEditLineCopy_Click();
        ClearPosiTable();
        QdDataHyoji_3();
        GoToCell(kGridHeadRows, 1);
        mnuEditLinePaste_Click();
        EXPECT_EQ(gridTexts(), shown);
        EXPECT_EQ(ChangeUnit(kSet), 0);
        EXPECT_EQ(ChangeUnit(kClear), 0);
        EXPECT_EQ(gridTexts(), shown);
    }
}

} // namespace
} // namespace qdw8::test
