#include "setup/posi_open.h"

#include "file_fixture.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_reader.h"

#include <fstream>

namespace qdw8::test {
namespace {

const std::string kReadError = "An error occured in Reading file.";
const std::string kStopped = "Reading was stopped.";
const std::string kNotPositions = "Not Position Data file for QD-W8.\r\nOpening file is canceled.";
const std::string kBadDevice = "Device type is not selected.\r\nPlease select device type again.";

class OpenTest : public PosiFilesTest {
protected:
    OpenTest() {
        showRows(1, 2);
        type(1, kComment, "old");
        PosiDirtyFlag = kSet;
        ShowPosiFileName("before");
    }

    void expectAsBefore() {
        EXPECT_EQ(GridFirst, 1);
        EXPECT_EQ(GridLast, 2);
        EXPECT_EQ(PosiFirst, 1);
        EXPECT_EQ(PosiLast, 2);
        EXPECT_EQ(GridRowCount, 2);
        EXPECT_EQ(cell(1, kComment), "old");
        EXPECT_EQ(PosiFileName, "before");
        EXPECT_EQ(PosiDirtyFlag, kSet);
        EXPECT_FALSE(flgdData().locked);
    }

    /// Opens a file that can't be read: six tries, 100 ms apart, and one box.
    void expectUnreadable(const std::string& name) {
        SCOPED_TRACE(name);
        const std::int64_t begin = platform.now;
        expectOpen(name);
        platform.expectBox(kReadError);
        OpenPosiFile();
        platform.checkAllAsked();
        EXPECT_EQ(platform.now - begin, 500);
        expectAsBefore();
    }
};

TEST_F(OpenTest, AFileIsShownWithItsRowsAndItsName) {
    write("part.qdd", head() + row(5, "\x8C\xB4\x93\x5F") + row(6, "NEW") + row(7));
    expectOpen("part.qdd");
    OpenPosiFile();
    EXPECT_EQ(GridFirst, 5);
    EXPECT_EQ(GridLast, 7);
    EXPECT_EQ(PosiFirst, 5);
    EXPECT_EQ(PosiLast, 7);
    EXPECT_EQ(GridRowCount, 3);
    EXPECT_EQ(GridText(2, 0), "5");
    EXPECT_EQ(cell(5, kComment), "原点");
    EXPECT_EQ(cell(7, kPosi), "1007");
    EXPECT_DOUBLE_EQ(PosiUnitTable[7].mm[0], 5.035);
    EXPECT_EQ(FileNewOldText[0], "(New)");
    EXPECT_EQ(PosiFileName, "part");
    EXPECT_EQ(ThePanel().lblFileName, "part");
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_EQ(PosiFolder, folder);
    EXPECT_EQ(ThePanel().scale[0], "<1>1mm = 200Pulse");
}

TEST_F(OpenTest, AnOldFileHasNoLineOfTypes) {
    DevSetting[0].NewType = DevSetting[0].Vertical = kClear;
    write("old.qdd", "\"QD-K8\"\n\"QD-44L-100\",\"\",\"\",\"QD-61F-200\"\n" + row(3, "NEW"));
    expectOpen("old.qdd");
    OpenPosiFile();
    EXPECT_EQ(GridFirst, 3);
    EXPECT_EQ(GridLast, 3);
    EXPECT_EQ(cell(3, kComment), "NEW");
    EXPECT_EQ(FileNewOld, (std::array<std::string, kAxes>{"OLD", "OLD", "OLD", "OLD"}));
    EXPECT_EQ(FileNewOldText[3], "(Old)");
}

TEST_F(OpenTest, LineEndsBlanksAndWhatStandsBehindAQuoteDontMatter) {
    const std::string fields = R"( " 10"x , 2," 1", " 12"," 30"," 3"," 0"," 0"," 30"," 3"," 0",)"
                               R"(" 0"," 30"," 2"," 0"," 7.5"," 0"," 0",abc," a, b ")";
    for (const char* end : {"\r", "\n", "\r\n"}) {
        std::string text = head() + "5," + fields;
        for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;) {
            text.replace(at, 2, end);
            at += std::string(end).size();
        }
        write("loose.qdd", text); // nor is a line end needed behind the last row
        ASSERT_EQ(ReadPosiFile(path("loose.qdd")), 0);
        PosiFirst = PosiLast = 5;
        PosiStageToTable();
        EXPECT_EQ(PosiTable[5].number[kVel], 10);
        EXPECT_EQ(PosiTable[5].number[kAcc], 2);
        EXPECT_EQ(PosiUnitTable[5].pulse[3], 7.5);
        EXPECT_EQ(PosiTable[5].number[kSm], 0) << "what is no number reads as 0";
        EXPECT_EQ(PosiTable[5].comment, " a, b ");
    }
}

TEST_F(OpenTest, RowsInAnyOrderAndGapsAreTaken) {
    PosiStage[6][kVel + 1] = 44.0;
    write("gap.qdd", head() + row(5) + row(9) + row(7));
    EXPECT_EQ(ReadPosiFile(path("gap.qdd")), 0);
    EXPECT_EQ(FileFirst, 5);
    EXPECT_EQ(FileLast, 7) << "the last one met";
    EXPECT_EQ(NumberOf(PosiStage[6][kVel + 1]), 44);
    EXPECT_EQ(NumberOf(PosiStage[9][kPosi + 1]), 1009);

    write("none.qdd", head());
    EXPECT_EQ(ReadPosiFile(path("none.qdd")), 0);
    EXPECT_EQ(FileFirst, 5);
    EXPECT_EQ(FileLast, 7);
    write("zero.qdd", head() + row(0) + row(1));
    EXPECT_EQ(ReadPosiFile(path("zero.qdd")), 0);
    EXPECT_EQ(FileFirst, 0);
}

TEST_F(OpenTest, ARowZeroIsShownCheckedAndSavedLikeAnyOther) {
    write("zero.qdd", head() + row(0) + row(1));
    expectOpen("zero.qdd");
    OpenPosiFile();
    EXPECT_EQ(GridText(2, 0), "0");
    type(0, kVel, "61");
    platform.expectScreen("frmSyogoKekka");
    SavePosiFile();
    type(0, kVel, "60");
    type(0, 12 + kAcc, "2");
    type(1, 12 + kAcc, "2");
    SavePosiFile();
    EXPECT_NE(ReadWholeFile(path("zero.qdd")).find("\r\n0,\" 60\","), std::string::npos);
}

TEST_F(OpenTest, TheShelfOfBrokenFilesIsRefusedInBoundedTime) {
    const std::string fewer = row(6).substr(0, row(6).size() - 6) + "\r\n"; // a field is missing
    const std::vector<std::pair<std::string, std::string>> shelf{
        {"empty.qdd", ""},
        {"magic-alone.qdd", "\"QD-K8\"\r\n"},
        {"open-quote.qdd", "\"QD-K8"},
        {"cut-in-head.qdd", "\"QD-K8\"\r\n\"QD-44L-100\",\"\""},
        {"cut-in-row.qdd", head() + row(5) + row(6).substr(0, 40)},
        {"cut-in-quote.qdd", head() + row(5, "comment").substr(0, row(5).size())},
        {"number-1000.qdd", head() + row(5) + row(1000)},
        {"number-negative.qdd", head() + row(-1)},
        {"number-huge.qdd", head() + "99999999999" + row(5).substr(1)},
        {"too-few.qdd", head() + row(5) + fewer},
        {"too-many.qdd", head() + row(5).substr(0, row(5).size() - 2) + ",\"x\"\r\n"},
        {"blank-line-behind.qdd", head() + row(5) + "\r\n"},
        {"quote-in-comment.qdd", head() + row(5, "a\",\"b") + row(6)},
        {"binary-behind-magic.qdd", "\"QD-K8\"\r\n" + std::string(100'000, '\0')},
        {"backwards.qdd", head() + row(9) + row(5)},
        {"row-0-alone.qdd", head() + row(0)},
    };
    for (const auto& [name, bytes] : shelf) {
        write(name, bytes);
        const bool readable = name == "backwards.qdd" || name == "row-0-alone.qdd";
        if (!readable) {
            expectUnreadable(name);
            continue;
        }
        expectOpen(name); // it can be read, but no grid can show it
        platform.expectBox(kReadError);
        OpenPosiFile();
        platform.checkAllAsked();
        expectAsBefore();
    }
    expectUnreadable("missing.qdd");
    std::filesystem::create_directories(path("folder.qdd"));
    expectUnreadable("folder.qdd");
}

TEST_F(OpenTest, AFileOfAHundredMegabytesIsRefusedWithoutBeingHeld) {
    {
        std::ofstream file(path("huge.qdd"), std::ios::binary);
        file << head();
        const std::string block(1U << 20U, 'x');
        for (int i = 0; i < 100; ++i) {
            file << block;
        }
    }
    expectUnreadable("huge.qdd");
}

TEST_F(OpenTest, AForeignFileIsLeftOpenAndTheNextOpeningStumblesOnceOverIt) {
    write("good.qdd", head() + row(5) + row(6));
    write("foreign.qdd", "ELF\1\377,\2");
    expectOpen("foreign.qdd");
    platform.expectBox(kNotPositions);
    platform.expectBox(kReadError); // no file was read before, so
                                    // there is nothing to show
    // The names of a file that was never read are those of four
    // axes out of use.
    OpenPosiFile();
    platform.checkAllAsked();
    expectAsBefore();

    expectOpen("good.qdd");
    const std::int64_t begin = platform.now;
    OpenPosiFile();
    EXPECT_EQ(platform.now - begin, 100) << "one try is lost on the open file";
    EXPECT_EQ(PosiFileName, "good");
    EXPECT_EQ(GridLast, 6);

    PosiStage[6][kVel + 1] = 12.0;
    expectOpen("foreign.qdd");
    platform.expectBox(kNotPositions);
    OpenPosiFile(); // goes on with what the file before has left
    EXPECT_EQ(PosiFileName, "foreign");
    EXPECT_EQ(GridFirst, 5);
    EXPECT_EQ(cell(6, kVel), "12");
}

TEST_F(OpenTest, ADialogCancelledStopsTheReading) {
    platform.expectFile(question("Open Position Data file"), std::nullopt);
    platform.expectBox(kStopped);
    OpenPosiFile();
    platform.expectFile(question("Open Position Data file"), FileAnswer{});
    OpenPosiFile();
    expectAsBefore();
}

TEST_F(OpenTest, ABadDeviceNameGivesTheRangesBack) {
    write("bad.qdd", "\"QD-K8\"\r\n\"XX-44L-100\",\"\",\"\",\"QD-61F-200\"\r\n"
                     "\"NEW\",\"NEW\",\"NEW\",\"NEW\"\r\n" +
                         row(5));
    expectOpen("bad.qdd");
    platform.expectBox(kBadDevice);
    platform.expectBox(kReadError);
    OpenPosiFile();
    expectAsBefore();
}

class OtherDevices : public OpenTest {
protected:
    OtherDevices() {
        ThePlatform().programFolder = QDW8_DATA_DIR;
        write("other.qdd", "\"QD-K8\"\r\n\"QD-44L-050\",\"\",\"\",\"QD-61F-200\"\r\n"
                           "\"NEW\",\"NEW\",\"NEW\",\"NEW\"\r\n" +
                               row(5));
    }
    void open(std::int16_t answer) {
        expectOpen("other.qdd");
        expectDeviceChoice(answer);
        OpenPosiFile();
        platform.checkAllAsked();
    }
};

TEST_F(OtherDevices, CanBeOpenedWithThePresentOnes) {
    open(0);
    EXPECT_EQ(PosiFileName, "other");
    EXPECT_EQ(DevSettei[0].DevStroke, 100) << "the program's own counts";
    open(kSelectionCancelled);
    EXPECT_EQ(DevSettei[0].DevStroke, 50) << "nothing is copied";
    EXPECT_EQ(DevSetting[0].DevStroke, 100);
    EXPECT_EQ(GridFirst, 5);
}

TEST_F(OtherDevices, OrWithTheFilesOwnAndTheirFactoryParameters) {
    open(1);
    EXPECT_EQ(DevSetting[0].DevStroke, 50);
    EXPECT_EQ(DevSetting[0].MaxPulse, 10000);
    EXPECT_EQ(platform.settings["DevStroke1"], "50");
    EXPECT_EQ(PosiFileName, "other");
}

TEST_F(OtherDevices, WithoutFactoryParametersTheDevicesStayTheOnesOfBefore) {
    std::filesystem::copy_file(QDW8_DATA_DIR "/nqddevice.lst", path("nqddevice.lst"));
    ThePlatform().programFolder = folder;
    const auto before = DevSetting;
    expectOpen("other.qdd");
    expectDeviceChoice(1);
    platform.expectBox(
        "No standard parameter list file.\r\nPut standart parameter list file in the "
        "folder in which the program saved in order to indicate standard "
        "parameters correctly.");
    platform.expectBox("Fail to open standard parameter file.");
    OpenPosiFile();
    EXPECT_EQ(DevSetting, before);
    EXPECT_EQ(PosiFileName, "other") << "the positions come all the same";
}

TEST_F(OtherDevices, AParameterFileThatDoesntComeEndsTheOpening) {
    const auto setteiBefore = DevSettei;
    write("none.pmt", "\"QD-K8\",\"POS\"\r\n");
    const FileQuestion parameters{FileQuestion::Kind::Open,
                                  "Open Parameter file",
                                  "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*",
                                  "pmt",
                                  "",
                                  "",
                                  kFileMustExist};
    for (const bool cancelled : {true, false}) {
        expectOpen("other.qdd");
        expectDeviceChoice(2);
        if (cancelled) {
            platform.expectFile(parameters, std::nullopt);
        } else {
            platform.expectFile(parameters, FileAnswer{path("none.pmt"), "none.pmt"});
            platform.expectBox("Not parameter file for QD-W8.\r\nOpening file is canceled.");
        }
        platform.expectBox(kStopped);
        OpenPosiFile();
        platform.checkAllAsked();
        expectAsBefore();
        EXPECT_EQ(DevSettei, setteiBefore);
    }
}

TEST_F(OtherDevices, OtherAxesInUseAreADifferenceToo) {
    write("axes.qdd", "\"QD-K8\"\r\n\"QD-44L-100\",\"QD-44L-100\",\"\",\"QD-61F-200\"\r\n"
                      "\"NEW\",\"NEW\",\"NEW\",\"NEW\"\r\n" +
                          row(5));
    expectOpen("axes.qdd");
    expectDeviceChoice(1);
    OpenPosiFile();
    EXPECT_EQ(AxisOff[1], kClear);
    EXPECT_EQ(DevSetting[1].DevSize, " 44") << "the axis that the PC did not use is read as well";
    EXPECT_EQ(DevSetting[1].DevStroke, 100);
}

} // namespace
} // namespace qdw8::test
