#include "parameter/para_file.h"

#include "app/string_table.h"
#include "parameter/para_fields.h"
#include "parameter/para_rows.h"
#include "parameter/parameter_fixture.h"
#include "platform/whole_file.h"

#include <filesystem>

namespace qdw8::test {
namespace {

const std::string kOtherKind = "Not parameter file for QD-W8.\r\nOpening file is canceled.";
const std::string kGivenUp = "Fail to open parameter file.";
const std::string kFilter = "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*";

/// A whole file with every line different, as it lies on the disk.
const std::vector<std::string> kLines = {
    R"("QD-K8","PRM")",
    "5",
    R"("HOME",6,4)",
    "1,65535,300,400",
    "1,255,3,4",
    "10,11,12,60",
    "13,14,15,16",
    "17,18,19,20",
    "1,2,3,9",
    R"("AXIS",7,4)",
    "15000,20000,262143,0",
    "8,2,2,255",
    "400,65535,400,192",
    "15,16,17,30",
    "0,1,0,1",
    "0,1,2,5",
    R"(" 61H300"," 44L050","J52L100"," 61F500")",
    R"("PG",2,4)",
    "0,1,2,0",
    "5,400,500,65535",
    R"("ETC",5,1)",
    "3",
    "1",
    "0",
    "1",
    "50",
    R"("SPECIAL",7,4)",
    "15,0,0,0",
    "1,0,0,0",
    "10,20,30,255",
    "40,50,60,255",
    "0,1,0,1",
    "1,0,1,0",
    "1,0,0,0",
};

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

std::string WithLine(std::size_t number, const std::string& line) {
    std::vector<std::string> lines = kLines;
    lines.at(number - 1) = line;
    return Joined(lines);
}

class ParaFile : public ParameterTest {
protected:
    FileQuestion openQuestion() const {
        return {FileQuestion::Kind::Open,
                "Open Parameter file",
                kFilter,
                "pmt",
                "",
                "",
                kFileMustExist};
    }
    FileQuestion saveQuestion() const {
        return {
            FileQuestion::Kind::Save, "Save Parameters as ...", kFilter, "pmt", "qdw8prm1.pmt", "",
            kOverwritePrompt};
    }
    void expectOpen(const std::string& path) {
        platform.expectFile(openQuestion(), FileAnswer{path, "x.pmt"});
    }
};

TEST_F(ParaFile, IsReadAndWrittenToTheByte) {
    const std::string path = writeFile("one.pmt", Joined(kLines));
    ASSERT_EQ(ReadParaFile(path), 0);
    EXPECT_EQ(ParaSet, ParameterSet{}) << "a read goes no further than the table";
    EXPECT_EQ(CellText(ParaRowTable.at(0, kRowFileName)), "one.pmt");
    ASSERT_EQ(ApplyRowTable(RowSource::File), 0);
    EXPECT_EQ(ParaSet.OFFSET, (AxisNumbers{1, 65535, 300, 400}));
    EXPECT_EQ(ParaSet.SEQ[3], 9);
    EXPECT_EQ(ParaSet.STROKE[2], 262143);
    EXPECT_EQ(ParaSet.PULSE[1], 65535);
    EXPECT_EQ(ParaSet.parts[0], (ActuatorParts{" 61", "H", 300}));
    EXPECT_EQ(ParaSet.parts[2], (ActuatorParts{"J52", "L", 100}));
    EXPECT_EQ(ParaSet.ALM[3], 65535);
    EXPECT_EQ(ParaSet.SM_TIMER, 50);
    EXPECT_EQ(ParaSet.AXIS, 15);
    EXPECT_EQ(ParaSet.LS_SERCH_TIMER[3], 255);
    EXPECT_EQ(ParaSet.STOP_PAUSE, 1);

    ASSERT_EQ(WriteParaFile(pathOf("two.pmt")), 0);
    EXPECT_EQ(ReadWholeFile(pathOf("two.pmt")), Joined(kLines));
}

TEST_F(ParaFile, HoldsAnyValidSetButForTheAcceleration) {
    std::mt19937 random(20);
    for (int i = 0; i < 200; ++i) {
        const ParameterSet set = RandomSet(random);
        ParaSet = set;
        SetAxisOffByMask(AxisOff, i % 16);
        ASSERT_EQ(WriteParaFile(pathOf("any.pmt")), 0);
        ParaSet = ParameterSet{};
        ASSERT_EQ(ReadParaFile(pathOf("any.pmt")), 0);
        ASSERT_EQ(ApplyRowTable(RowSource::File), 0);
        EXPECT_EQ(ParaSet.ACC_DCC, 0);
        ParaSet.ACC_DCC = set.ACC_DCC;
        ASSERT_EQ(ParaSet, set) << i;
    }
}

TEST_F(ParaFile, RebuildsTheActuatorBeforeWriting) {
    ParaSet = SampleSet();
    ParaSet.Actuator[0] = "stale";
    ASSERT_EQ(WriteParaFile(pathOf("a.pmt")), 0);
    EXPECT_EQ(ParaSet.Actuator[0], " 61H300");
}

TEST_F(ParaFile, OlderAndNewerFormsAreTaken) {
    std::vector<std::string> six = kLines;
    six[26] = R"("SPECIAL",6,4)";
    six.pop_back();
    ParaSet.STOP_PAUSE = 1;
    ParaSet.ACC_DCC = 9;
    ASSERT_EQ(ReadParaFile(writeFile("six.pmt", Joined(six))), 0);
    ASSERT_EQ(ApplyRowTable(RowSource::File), 0);
    EXPECT_EQ(ParaSet.STOP_PAUSE, 0);
    EXPECT_EQ(ParaSet.ACC_DCC, 0);
    EXPECT_EQ(ParaSet.M0_DISABLE[2], 1);

    ParaSet.ACC_DCC = 9;
    ASSERT_EQ(ReadParaFile(writeFile("seven.pmt", Joined(kLines))), 0);
    ASSERT_EQ(ApplyRowTable(RowSource::File), 0);
    EXPECT_EQ(ParaSet.STOP_PAUSE, 1);
    EXPECT_EQ(ParaSet.ACC_DCC, 0);

    std::vector<std::string> eight = kLines;
    eight[26] = R"("SPECIAL",8,4)";
    eight.push_back("3,0,0,0");
    ASSERT_EQ(ReadParaFile(writeFile("eight.pmt", Joined(eight))), 0);
    ASSERT_EQ(ApplyRowTable(RowSource::File), 0);
    EXPECT_EQ(ParaSet.ACC_DCC, 3);

    std::vector<std::string> sixSections = eight;
    sixSections[1] = "6";
    sixSections.push_back(R"("SPECIAL",1,1)");
    sixSections.push_back("5");
    EXPECT_EQ(ReadParaFile(writeFile("sections.pmt", Joined(sixSections))), 0);
}

TEST_F(ParaFile, AnActuatorThatLostItsBlankIsUnderstood) {
    const auto line = R"("44L050"," 44 050","71","1234567")";
    ASSERT_EQ(ReadParaFile(writeFile("a.pmt", WithLine(17, line))), 0);
    ASSERT_EQ(ApplyRowTable(RowSource::File), 0);
    EXPECT_EQ(ParaSet.parts[0], (ActuatorParts{" 44", "L", 50}));
    EXPECT_EQ(ParaSet.parts[1], (ActuatorParts{" 44", "", 50}));
    EXPECT_EQ(ParaSet.parts[2], (ActuatorParts{" 71", "", 0}));
    EXPECT_EQ(ParaSet.Actuator[3], "1234567");
}

enum class Told { OtherKind, GivenUp };

struct BrokenFile {
    const char* name;
    std::string bytes;
    Told told;
};

std::vector<BrokenFile> Shelf() {
    const std::string whole = Joined(kLines);
    std::string binary;
    for (int i = 0; i < 4096; ++i) {
        binary += static_cast<char>(i * 37 % 256);
    }
    return {
        {"empty", "", Told::GivenUp},
        {"only a head", kLines[0] + "\r\n", Told::GivenUp},
        {"half a head", R"("QD-K8")", Told::GivenUp},
        {"of a group", WithLine(1, R"("QD-K8","GRP")"), Told::OtherKind},
        {"of another controller", WithLine(1, R"("QD-K9","PRM")"), Told::OtherKind},
        {"cut in a line", whole.substr(0, whole.size() - 9), Told::GivenUp},
        {"cut in the middle", whole.substr(0, whole.size() / 2), Told::GivenUp},
        {"cut in a text", whole.substr(0, whole.find("61F")), Told::GivenUp},
        {"wrong section", WithLine(10, R"("PG",7,4)"), Told::GivenUp},
        {"lower case section", WithLine(18, R"("pg",2,4)"), Told::GivenUp},
        {"no sections", WithLine(2, "0"), Told::GivenUp},
        {"fewer than no sections", WithLine(2, "-1"), Told::GivenUp},
        {"sections without a number", WithLine(2, "many"), Told::GivenUp},
        {"too many sections", WithLine(2, "6"), Told::GivenUp},
        {"count beyond 16 bits", WithLine(2, "70000"), Told::GivenUp},
        {"too few rows", WithLine(3, R"("HOME",5,4)"), Told::GivenUp},
        {"too many rows", WithLine(27, R"("SPECIAL",20,4)"), Told::GivenUp},
        {"too many columns", WithLine(27, R"("SPECIAL",7,6)"), Told::GivenUp},
        {"three numbers where four are due", WithLine(4, "1,2,3"), Told::GivenUp},
        {"text for a number", WithLine(5, "1,abc,3,4"), Told::GivenUp},
        {"number with a tail", WithLine(5, "1,2x,3,4"), Told::GivenUp},
        {"number too wide", WithLine(5, "1,2,3,32768"), Told::GivenUp},
        {"number far too wide", WithLine(13, "1,2,3,99999999999999999999"), Told::GivenUp},
        {"text for a common item", WithLine(22, R"("x")"), Told::GivenUp},
        {"a megabyte of one line", kLines[0] + "\r\n5\r\n" + std::string(1 << 20, '7'),
         Told::GivenUp},
        {"a megabyte before the head", std::string(1 << 20, 'x'), Told::GivenUp},
        {"a hundred sections", Joined({kLines[0], "100"}) + whole, Told::GivenUp},
        {"binary", binary, Told::OtherKind},
        {"zeros", std::string(10000, '\0'), Told::GivenUp},
    };
}

TEST_F(ParaFile, ABrokenFileChangesNothing) {
    const ParameterSet before = SampleSet();
    for (const BrokenFile& file : Shelf()) {
        SCOPED_TRACE(file.name);
        ParaSet = before;
        expectOpen(writeFile("broken.pmt", file.bytes));
        const bool otherKind = file.told == Told::OtherKind;
        platform.expectBox(otherKind ? kOtherKind : kGivenUp);
        EXPECT_EQ(OpenParaFile(), otherKind ? -1 : 1);
        platform.checkAllAsked();
        EXPECT_EQ(ParaSet, before);
    }
}

TEST_F(ParaFile, AnotherKindOfFileIsToldOnceAndNotTriedAgain) {
    expectOpen(writeFile("group.pmt", R"("QD-K8","GRP")"));
    platform.expectBox(kOtherKind);
    EXPECT_EQ(OpenParaFile(), -1);
    EXPECT_EQ(platform.now, 0);
}

TEST_F(ParaFile, IsTriedSixTimes) {
    expectOpen(pathOf("missing.pmt"));
    platform.expectBox(kGivenUp);
    EXPECT_EQ(OpenParaFile(), 1);
    EXPECT_EQ(platform.now, 500);

    platform.now = 0;
    expectOpen(pathOf("late.pmt"));
    platform.after(450, [this] { writeFile("late.pmt", Joined(kLines)); });
    EXPECT_EQ(OpenParaFile(), 0);
    EXPECT_EQ(platform.now, 500);
    EXPECT_EQ(ParaSet.SM_TIMER, 50);
}

TEST_F(ParaFile, ACancelledDialogIsSilent) {
    ParaSet = SampleSet();
    platform.expectFile(openQuestion(), std::nullopt);
    EXPECT_EQ(OpenParaFile(), -1);
    ParametaHyoji();
    platform.expectFile(saveQuestion(), std::nullopt);
    EXPECT_EQ(SaveParameters(), 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(ParaFile, SavesWhatTheFieldsSay) {
    ParaSet = SampleSet();
    ParametaHyoji();
    ParaFields.txtHomeOffset[0] = "4321";
    platform.expectFile(saveQuestion(), FileAnswer{pathOf("new.pmt"), "new.pmt"});
    platform.expectBox("Completed save parameters into the file.");
    EXPECT_EQ(SaveParameters(), 0);
    EXPECT_NE(ReadWholeFile(pathOf("new.pmt")).find("\r\n4321,"), std::string::npos);
    EXPECT_EQ(ParaSet.OFFSET[0], 4321);
}

TEST_F(ParaFile, SavesNothingThatIsEmptyOrBad) {
    ParaSet = SampleSet();
    ParametaHyoji();
    ParaFields.txtHomeVel[2].clear();
    platform.expectBox(kNotFilled);
    EXPECT_EQ(SaveParameters(), 1);
    const std::string invalid =
        "Invalid value in some parameters.\r\nConfirm the value and try it again.";
    for (const char* bad : {"61", "0", "40000"}) {
        ParaFields.txtHomeVel[2] = bad;
        platform.expectBox(invalid);
        EXPECT_EQ(SaveParameters(), 1) << bad;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(ParaFile, ASaveThatFailsLeavesTheOldFile) {
    ParaSet = SampleSet();
    ParametaHyoji();
    const std::string path = pathOf("gone/new.pmt");
    platform.expectFile(saveQuestion(), FileAnswer{path, "new.pmt"});
    platform.expectBox("Fail to  Save parameters into the file.");
    EXPECT_EQ(SaveParameters(), 1);
    EXPECT_EQ(platform.now, 500);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(ParaFile, ADialogThatFailsIsTold) {
    ParaSet = SampleSet();
    ParametaHyoji();
    ThePlatform().CommonDialog1.ShowFile = [](const FileQuestion&) -> std::optional<FileAnswer> {
        throw std::runtime_error("no dialog");
    };
    platform.expectBox("Fail to  Save parameters into the file.");
    EXPECT_EQ(SaveParameters(), 1);
    platform.expectBox(kGivenUp);
    EXPECT_EQ(OpenParaFile(), 1);
}

} // namespace
} // namespace qdw8::test
