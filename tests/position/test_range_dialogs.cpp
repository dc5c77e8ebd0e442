#include "position/range_dialogs.h"

#include "position_fixture.h"

namespace qdw8::test {
namespace {

struct RangeCase {
    const char* start;
    const char* end;
    bool readTakes; ///< 1 to 999
    bool gridTakes; ///< the grid shows 5 to 20
};

TEST_F(PositionTest, TheRangeDialogsTakeWhatIsInOrderAndInside) {
    showRows(5, 20);
    const std::vector<RangeCase> cases{
        {"5", "20", true, true},  {"7", "7", true, true},      {"4", "20", true, false},
        {"5", "21", true, false}, {"1", "999", true, false},   {"0", "9", false, false},
        {"9", "8", false, false}, {"1", "1000", false, false}, {"", "9", false, false},
        {"9", "", false, false},
    };
    for (const RangeCase& given : cases) {
        for (const bool fromGrid : {false, true}) {
            SCOPED_TRACE(std::string(given.start) + " to " + given.end + (fromGrid ? " grid" : ""));
            PosiFirst = 11;
            PosiLast = 12;
            const bool takes = fromGrid ? given.gridTakes : given.readTakes;
            if (!takes) {
                platform.expectBox("Invalid value in Position No.");
            }
            const RangeTexts texts{given.start, given.end};
            EXPECT_EQ(fromGrid ? TakeGridRange(texts) : TakeReadRange(false, texts), takes);
            EXPECT_EQ(PosiFirst, takes ? std::stoi(given.start) : 11);
            EXPECT_EQ(PosiLast, takes ? std::stoi(given.end) : 12);
            platform.checkAllAsked();
        }
    }
    EXPECT_TRUE(TakeReadRange(true, {"", ""}));
    EXPECT_EQ(PosiFirst, 1);
    EXPECT_EQ(PosiLast, 999);
}

TEST_F(PositionTest, TheReadRangeIsPresetToTheGridOrToAFirstFew) {
    EXPECT_EQ(ReadRangePreset().end, "15");
    showRows(5, 20);
    EXPECT_EQ(ReadRangePreset().start, "5");
    EXPECT_EQ(ReadRangePreset().end, "20");
}

} // namespace
} // namespace qdw8::test
