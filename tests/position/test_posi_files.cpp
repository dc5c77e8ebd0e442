#include "device/axis_device.h"
#include "device/device_name.h"
#include "platform/whole_file.h"
#include "position/posi_file.h"
#include "position/posi_new.h"
#include "position/posi_reader.h"
#include "position/range_dialogs.h"
#include "position_bench.h"
#include "setup/posi_open.h"

#include <filesystem>
#include <fstream>

namespace qdw8::test {
namespace {

const std::string kSaveTitle = "Save Position data As...";
const std::string kSaveAsTitle = "Save Position Data as ...";
const std::string kWrite = "Write Data to the file,Yes?";
const std::string kChanged = "Data have been changed.Save the data into the file?";

class Files : public PositionTest {
protected:
    Files() {
        showRows(1, 2);
        type(1, kComment, "old");
        TakePosiFile(pathOf("before.qdd"));
        PosiDirtyFlag = kSet;
        GoToCell(3, 2);
    }
    void open(const std::string& path) {
        expectOpen(path);
        OpenPosiFile();
        platform.checkAllAsked();
    }
    void expectAsBefore() {
        ExpectRanges(1, 2);
        EXPECT_EQ(cell(1, kComment), "old");
        EXPECT_EQ(PosiFilePath, pathOf("before.qdd"));
        EXPECT_EQ(PosiDirtyFlag, kSet);
        EXPECT_EQ(std::pair(flgdData().row, flgdData().col), std::pair(3, 2));
        ExpectAtRest(platform);
    }
    /// A save as of rows 1 to `last` up to the file dialog.
    void expectSaveAs(std::int16_t last, const std::string& path) {
        expectRange("frmSelectPosiNo3", 1, last);
        platform.expectBox(kWrite, BoxButtons::OkCancel, BoxAnswer::Ok);
        expectFile(FileQuestion::Kind::Save, kSaveAsTitle, path);
    }
    int linesOf(const std::string& name) const {
        const std::string text = ReadWholeFile(pathOf(name));
        return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    }
};

TEST_F(Files, AFileIsShownWithItsRowsAndSavedUnderItsOwnName) {
    const std::string path = pathOf("UP.QDD");
    std::filesystem::copy(fileOf("good.qdd"), path);
    platform.recordsBoxes = true;
    open(path);
    EXPECT_EQ(platform.boxes, std::vector{box::kCut});
    ExpectRanges(5, 7);
    EXPECT_EQ(flgdData().row, 0) << "no cell is current";
    EXPECT_EQ(GridText(2, 0) + cell(5, kComment) + cell(7, kPosi), "5原点1007");
    EXPECT_EQ(cell(7, kComment), "a'" + std::string(38, 'x'));
    EXPECT_DOUBLE_EQ(PosiUnitTable[7].mm[0], 5.035);
    EXPECT_EQ(FileNewOldText[0] + PosiFileName + ThePanel().lblFileName, "(New)UPUP");
    EXPECT_EQ(ThePanel().scale[0], "<1>1mm = 200Pulse");
    EXPECT_EQ(PosiDirtyFlag, kClear);
    std::filesystem::remove(path);
    SavePosiFile();
    EXPECT_EQ(linesOf("UP.QDD"), 6);
    EXPECT_FALSE(std::filesystem::exists(pathOf("UP.qdd")));
}

TEST_F(Files, OlderAndLooseFormsAreRead) {
    ASSERT_EQ(ReadPosiFile(fileOf("old.txt")), 0);
    EXPECT_EQ(FileNewOld[0] + FileNewOldText[3], "OLD(Old)");
    EXPECT_EQ(std::pair(FileFirst, FileLast), std::pair(std::int16_t{3}, std::int16_t{3}));
    EXPECT_EQ(TextOf(PosiStage[3][kComment + 1]), "NEW");
    ASSERT_EQ(ReadPosiFile(fileOf("loose.qdd")), 0);
    PosiFirst = PosiLast = 5;
    PosiStageToTable();
    EXPECT_EQ(PosiTable[5].number[kVel], 10);
    EXPECT_EQ(PosiUnitTable[5].pulse[3], 7.5);
    EXPECT_EQ(PosiTable[5].number[kSm], 0) << "what is no number reads as 0";
    EXPECT_EQ(PosiTable[5].comment, " a, b ");
    PosiStage[6][kVel + 1] = 44.0;
    ASSERT_EQ(ReadPosiFile(fileOf("gap.qdd")), 0);
    ASSERT_EQ(ReadPosiFile(fileOf("head-alone.qdd")), 0); // leaves what was read before
    EXPECT_EQ(FileFirst, 5);
    EXPECT_EQ(FileLast, 7) << "the last one met";
    EXPECT_EQ(NumberOf(PosiStage[6][kVel + 1]), 44);
    EXPECT_EQ(NumberOf(PosiStage[9][kPosi + 1]), 1009);
    PosiDirtyFlag = kSet;
    open(fileOf("zero.qdd"));
    ExpectRanges(0, 1);
    type(0, kVel, "61");
    platform.expectScreen("frmSyogoKekka");
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Refused);
}

TEST_F(Files, TheShelfOfBrokenFilesIsRefusedInBoundedTime) {
    std::vector<std::string> shelf{pathOf("missing.qdd"), pathOf("huge.qdd"), pathOf("rows.qdd")};
    const std::string head = ReadWholeFile(fileOf("head-alone.qdd"));
    std::ofstream(shelf[1], std::ios::binary) << head << std::string(17U << 20U, 'x');
    std::string rows = ReadWholeFile(fileOf("gap.qdd")); // more rows than there are positions
    while (rows.size() < (4U << 20U)) {
        rows += rows.substr(head.size());
    }
    writeFile("rows.qdd", rows);
    for (const char* folderName : {"broken", "unshowable"}) {
        for (const auto& file : std::filesystem::directory_iterator(fileOf(folderName))) {
            shelf.push_back(file.path().string());
        }
    }
    EXPECT_GT(shelf.size(), 15U);
    for (const std::string& path : shelf) {
        SCOPED_TRACE(path);
        const std::int64_t begin = platform.now;
        expectOpen(path);
        platform.expectBox(box::kReadError);
        OpenPosiFile();
        platform.checkAllAsked();
        EXPECT_EQ(platform.now - begin, path.find("unshowable") == path.npos ? 500 : 0);
        expectAsBefore();
    }
}

TEST_F(Files, WhatEndsAnOpeningLeavesTheDocument) {
    expectOpen("");
    platform.expectBox("Reading was stopped.");
    OpenPosiFile();
    expectAsBefore();
    expectOpen(fileOf("bad-device.qdd"));
    platform.expectBox(box::kNotSelected);
    platform.expectBox(box::kReadError);
    OpenPosiFile();
    expectAsBefore();
}

TEST_F(Files, AForeignFileIsLeftOpenAndTheNextOpeningStumblesOnceOverIt) {
    const std::string notPositions =
        "Not Position Data file for QD-W8.\r\nOpening file is canceled.";
    platform.recordsBoxes = true;
    open(fileOf("foreign.bin")); // no file was read before, so there is nothing to show
    EXPECT_EQ(platform.boxes, (std::vector{notPositions, box::kReadError}));
    expectAsBefore();
    const std::int64_t begin = platform.now;
    open(fileOf("gap.qdd"));
    EXPECT_EQ(platform.now - begin, 100) << "one try is lost on the open file";
    PosiStage[6][kVel + 1] = 12.0;
    open(fileOf("foreign.bin")); // goes on with what the file before has left
    EXPECT_EQ(PosiFileName + cell(6, kVel), "foreign12");
}

TEST_F(Files, TheFileIsByteForByteAsLaidDown) {
    showRows(5, 6);
    type(5, kPosi, "12500");
    type(5, kComment, "first");
    type(6, kAxis4 + kPosi, "4799");
    type(6, kItpl, "1");
    type(6, kSm, "20");
    type(6, kComment, "原点 A'B€");
    DevSetting[0].NewType = kClear;
    const std::string question = "These characters of the comments cannot be written to the file:"
                                 "\r\n€\r\nThey are saved as \"?\". Save the data all the same?";
    platform.expectBox(question, BoxButtons::YesNo, BoxAnswer::No);
    SavePosiFile();
    EXPECT_EQ(SaveCancelledFlag, kSet);
    EXPECT_FALSE(std::filesystem::exists(pathOf("before.qdd")));
    platform.expectBox(question, BoxButtons::YesNo, BoxAnswer::Yes);
    SavePosiFile();
    EXPECT_EQ(ReadWholeFile(pathOf("before.qdd")), ReadWholeFile(fileOf("saved.qdd")));
    EXPECT_EQ(PosiDirtyFlag + SaveCancelledFlag, kClear);
}

TEST_F(Files, WithoutAFileYetSaveAsksForAName) {
    for (const char* name : {"", "Inside of C/T", "New Data", "Newton"}) {
        if (name == std::string("Newton")) {
            TakePosiFile(pathOf("Newton.qdd")); // taken for new data; that is meant so
        } else {
            ShowPosiFileName(name);
        }
        expectFile(FileQuestion::Kind::Save, kSaveTitle, pathOf("abc.qdd"));
        SavePosiFile();
        EXPECT_EQ(PosiFileName, "abc");
    }
    expectSaveAs(2, pathOf("part.txt"));
    SavePosiFileAs();
    SavePosiFile(); // the name it has now goes without a question
    EXPECT_EQ(PosiFilePath, pathOf("part.txt"));
}

TEST_F(Files, AFailingSaveIsTriedSixTimesAndLosesNothing) {
    for (const bool as : {false, true}) {
        const std::int64_t begin = platform.now;
        if (as) {
            TakePosiFile(pathOf("before.qdd"));
            expectSaveAs(1, pathOf("missing/x.qdd"));
        } else {
            TakePosiFile(pathOf("missing/before.qdd"));
        }
        platform.expectBox(box::kSaveError);
        as ? SavePosiFileAs() : SavePosiFile();
        EXPECT_EQ(platform.now - begin, 500);
        EXPECT_EQ(SaveCancelledFlag, kSet);
        EXPECT_EQ(PosiFileName, "before");
    }
    expectAsBefore();
}

TEST_F(Files, SaveAsOfAPartLeavesTheRestUnsavedAndToTheNextSave) {
    expectSaveAs(1, pathOf("part.qdd"));
    SavePosiFileAs();
    EXPECT_EQ(linesOf("part.qdd"), 4);
    EXPECT_EQ(PosiDirtyFlag, kSet) << "a row of the grid isn't in the file";
    EXPECT_EQ(SaveCancelledFlag, kClear);
    ExpectRanges(1, 2);
    SavePosiFile();
    EXPECT_EQ(linesOf("part.qdd"), 5);
    EXPECT_EQ(PosiDirtyFlag, kClear);
}

TEST_F(Files, EveryWayOutOfASaveWritesNothing) {
    platform.expectScreen("frmSelectPosiNo3", RangeDialogCancelled);
    SavePosiFileAs();
    EXPECT_EQ(RangeCancelFlag, kClear);
    expectRange("frmSelectPosiNo3", 1, 1);
    platform.expectBox(kWrite, BoxButtons::OkCancel, BoxAnswer::Cancel);
    SavePosiFileAs();
    expectSaveAs(1, "");
    SavePosiFileAs();
    expectAsBefore();
    EXPECT_EQ(SaveCancelledFlag, kSet);
    type(1, kVel, "99");
    for (const auto save : {SavePosiFile, SavePosiFileAs}) {
        if (save == SavePosiFileAs) {
            platform.expectScreen("frmSelectPosiNo3");
        }
        platform.expectScreen("frmSyogoKekka");
        save();
        EXPECT_EQ(SaveCancelledFlag, kSet);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    ResetGrid();
    platform.expectBox(box::kNoData);
    platform.expectBox(box::kSaveError);
    SavePosiFile();
    platform.expectBox(box::kNoData);
    SavePosiFileAs();
    EXPECT_EQ(SaveCancelledFlag, kSet);
}

TEST_F(Files, NewPutsFreshRowsInThePlaceOfTheTable) {
    const auto expectNew = [this](const char* start, const char* end) {
        platform.expectScreen("frmSelectPosiNo3", [start, end] {
            EXPECT_EQ(GridRangePreset().start + "-" + GridRangePreset().end, "1-15");
            EXPECT_TRUE(TakeGridRange({start, end}));
        });
    };
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::Cancel);
    mnuFileNew_Click();
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::No);
    platform.expectScreen("frmSelectPosiNo3", RangeDialogCancelled);
    mnuFileNew_Click();
    expectAsBefore();
    type(1, kVel, "99");
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    platform.expectScreen("frmSyogoKekka"); // a table with errors can't be saved
    platform.expectBox("Did not execute [new] command.");
    mnuFileNew_Click();
    type(1, kVel, "10");
    platform.expectBox(kChanged, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    expectNew("2", "11");
    mnuFileNew_Click();
    EXPECT_EQ(linesOf("before.qdd"), 5);
    ExpectRanges(2, 11);
    EXPECT_EQ(flgdData().row, 0) << "no cell is current";
    EXPECT_EQ(cell(2, kVel) + cell(11, kAxis4 + kAcc) + cell(2, kComment), "302");
    EXPECT_EQ(ThePanel().lblFileName + PosiFilePath, "New Data");
    EXPECT_EQ(PosiDirtyFlag, kClear);
    ExpectAtRest(platform);
}

TEST_F(Files, CloseAsksAndThenAsksTheWindow) {
    int closes = 0;
    Screens().frmMainClose = [&closes] { ++closes; };
    for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::No, BoxAnswer::Yes}) {
        EXPECT_EQ(PosiDirtyFlag, kSet) << "the window asks once more before anything is lost";
        platform.expectBox(kChanged, BoxButtons::YesNoCancel, answer);
        mnuFileClose_Click();
    }
    EXPECT_EQ(closes, 2);
    EXPECT_EQ(PosiDirtyFlag, kClear);
    mnuFileClose_Click();
    EXPECT_EQ(closes, 3) << "no question of its own without changes";
}

} // namespace
} // namespace qdw8::test
