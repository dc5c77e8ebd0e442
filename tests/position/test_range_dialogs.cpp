#include "position/posi_reader.h"
#include "position/posi_verify.h"
#include "position/range_dialogs.h"
#include "position_bench.h"

#include <fstream>
#include <sstream>

namespace qdw8::test {
namespace {

using Range = std::pair<std::int16_t, std::int16_t>;

Range RangeOf(const std::string& text) {
    return {static_cast<std::int16_t>(std::stoi(text)),
            static_cast<std::int16_t>(std::stoi(text.substr(text.find('-') + 1)))};
}

TEST_F(PositionTest, TheRangeDialogsTakeWhatIsInOrderAndInside) {
    EXPECT_EQ(ReadRangePreset().start + "-" + ReadRangePreset().end, "1-15");
    std::ifstream file(QDW8_SOURCE_DIR "/tests/position/ranges.txt");
    for (std::string given; std::getline(file, given);) {
        SCOPED_TRACE(given);
        std::istringstream parts(given);
        std::array<std::string, 4> field;
        for (std::string& part : field) {
            std::getline(parts, part, '\t');
        }
        const auto& [dialog, start, end, outcome] = field;
        if (dialog == "common") {
            std::tie(FileFirst, FileLast) = RangeOf(start);
            std::tie(GridFirst, GridLast) = RangeOf(end);
            EXPECT_EQ(CompareFileRange(), outcome == "-" ? 1 : 0);
            EXPECT_TRUE(outcome == "-" || RangeOf(outcome) == Range(VerifyFirst, VerifyLast));
        } else if (!dialog.starts_with('#')) {
            showRows(5, 20);
            std::tie(VerifyFirst, VerifyLast) = Range{5, 10};
            std::tie(PosiFirst, PosiLast) = Range{101, 102};
            const bool told = outcome.starts_with("box ");
            if (told) {
                platform.expectBox("Invalid value in Position No.");
            }
            const bool taken = dialog == "read"   ? TakeReadRange(false, {start, end})
                               : dialog == "grid" ? TakeGridRange({start, end})
                                                  : TakeVerifyRange({start, end});
            EXPECT_EQ(taken, outcome.find(' ') == outcome.npos);
            EXPECT_EQ(Range(PosiFirst, PosiLast), RangeOf(outcome.substr(outcome.find(' ') + 1)));
            platform.checkAllAsked();
        }
    }
    EXPECT_EQ(ReadRangePreset().start + "-" + GridRangePreset().end, "3-4");
    EXPECT_EQ(VerifyRangePreset().file.end + "-" + VerifyRangePreset().range.start, "999-3");
    EXPECT_TRUE(TakeReadRange(true, {"", ""}));
    EXPECT_EQ(Range(PosiFirst, PosiLast), Range(1, 999));
}

} // namespace
} // namespace qdw8::test
