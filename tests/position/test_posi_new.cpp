#include "position/posi_new.h"

#include "file_fixture.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/range_dialogs.h"

namespace qdw8::test {
namespace {

const std::string kChanged = "Data have been changed.Save the data into the file?";
const std::string kNotNew = "Did not execute [new] command.";

class NewTest : public PosiFilesTest {
protected:
    NewTest() {
        showRows(3, 4);
        type(3, kComment, "old");
        TakePosiFile(path("abc.qdd"));
    }
    void expectRange(const char* start, const char* end) {
        platform.expectScreen("frmSelectPosiNo3", [start, end] {
            RangeDialogOpened();
            EXPECT_EQ(GridRangePreset().start, "1");
            EXPECT_EQ(GridRangePreset().end, "15");
            EXPECT_TRUE(TakeGridRange({start, end}));
        });
    }
};

TEST_F(NewTest, FreshRowsTakeThePlaceOfTheTable) {
    expectRange("2", "11");
    mnuFileNew_Click();
    EXPECT_EQ(flgdData().rows.size(), 12U);
    EXPECT_EQ(GridFirst, 2);
    EXPECT_EQ(GridLast, 11);
    EXPECT_EQ(GridRowCount, 10);
    EXPECT_EQ(cell(3, kComment), "");
    EXPECT_EQ(cell(2, kVel), "30");
    EXPECT_EQ(cell(11, 12 + kAcc), "2");
    EXPECT_EQ(PosiFileName, "New Data");
    EXPECT_EQ(ThePanel().lblFileName, "New Data");
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_FALSE(flgdData().locked);
    EXPECT_EQ(flgdData().frozen, 0);
    EXPECT_TRUE(GridShowsItsRange());
}

TEST_F(NewTest, CancelLeavesTheTableAndItsRange) {
    platform.expectScreen("frmSelectPosiNo3", RangeDialogCancelled);
    mnuFileNew_Click();
    EXPECT_EQ(GridFirst, 3);
    EXPECT_EQ(GridLast, 4);
    EXPECT_EQ(GridRowCount, 2);
    EXPECT_EQ(RangeCancelFlag, kClear);
    EXPECT_EQ(cell(3, kComment), "old");
    EXPECT_EQ(PosiFileName, "abc");
}

TEST_F(NewTest, ChangesCanBeSavedFirst) {
    PosiDirtyFlag = kSet;
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::Cancel);
    mnuFileNew_Click();
    EXPECT_EQ(PosiDirtyFlag, kSet);

    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    type(3, kVel, "99");
    platform.expectScreen("frmSyogoKekka");
    platform.expectBox(kNotNew); // a table with errors can't be saved
    mnuFileNew_Click();
    EXPECT_EQ(cell(3, kComment), "old");

    type(3, kVel, "10");
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    expectRange("1", "15");
    mnuFileNew_Click();
    EXPECT_TRUE(std::filesystem::exists(path("abc.qdd")));
    EXPECT_EQ(GridLast, 15);

    PosiDirtyFlag = kSet;
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::No);
    expectRange("1", "1");
    mnuFileNew_Click();
    EXPECT_EQ(flgdData().rows.size(), 3U);
}

TEST_F(NewTest, CloseAsksAndThenAsksTheWindow) {
    int closes = 0;
    Screens().frmMainClose = [&closes] { ++closes; };
    mnuFileClose_Click();
    EXPECT_EQ(closes, 1) << "no question of its own without changes";
    PosiDirtyFlag = kSet;
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::Cancel);
    mnuFileClose_Click();
    EXPECT_EQ(closes, 1);
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::No);
    mnuFileClose_Click();
    EXPECT_EQ(closes, 2);
    EXPECT_EQ(PosiDirtyFlag, kSet) << "the window asks once more before anything is lost";
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    mnuFileClose_Click();
    EXPECT_EQ(closes, 3);
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_TRUE(std::filesystem::exists(path("abc.qdd")));
}

TEST_F(NewTest, ASaveAsThatComesToNothingLeavesTheWholeDocumentToTheNextSave) {
    PosiDirtyFlag = kSet;
    platform.expectScreen("frmSelectPosiNo3", [] { EXPECT_TRUE(TakeGridRange({"4", "4"})); });
    platform.expectBox("Write Data to the file,Yes?", BoxButtons::OkCancel, BoxAnswer::Cancel);
    SavePosiFileAs();
    SavePosiFile();
    const std::string text = ReadWholeFile(path("abc.qdd"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5) << "both rows";
}

} // namespace
} // namespace qdw8::test
