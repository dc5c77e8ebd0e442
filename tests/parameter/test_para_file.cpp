#include "parameter/para_file.h"

#include "app/string_table.h"
#include "parameter/para_fields.h"
#include "parameter/para_rows.h"
#include "parameter/parameter_bench.h"

#include <algorithm>

namespace qdw8::test {
namespace {

using std::filesystem::directory_iterator;
using ParaFile = ParameterTest;

const std::string kTaken = kHere + "files/taken/";
const std::string kOtherKind = "Not parameter file for QD-W8.\r\nOpening file is canceled.";
const std::string kGivenUp = "Fail to open parameter file.";
const std::string kNotSaved = "Fail to  Save parameters into the file.";
const std::string kFilter = "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*";
const FileQuestion kOpen{
    FileQuestion::Kind::Open, "Open Parameter file", kFilter, "pmt", "", "", kFileMustExist};
const FileQuestion kSave{
    FileQuestion::Kind::Save, "Save Parameters as ...", kFilter, "pmt", "qdw8prm1.pmt", "",
    kOverwritePrompt};

void Take(const std::string& name) {
    ASSERT_EQ(ReadParaFile(kTaken + name), 0) << name;
    ASSERT_EQ(ApplyRowTable(RowSource::File), 0) << name;
}

TEST_F(ParaFile, IsReadAndWrittenToTheByte) {
    const ParameterSet before = ParaSet;
    ASSERT_EQ(ReadParaFile(kTaken + "seven.pmt"), 0);
    EXPECT_EQ(ParaSet, before) << "a read goes no further than the table";
    EXPECT_EQ(CellText(ParaRowTable.at(0, kRowFileName)), "seven.pmt");
    Take("seven.pmt");
    EXPECT_EQ(ParaSet.OFFSET, (AxisNumbers{1, 65535, 300, 400}));
    EXPECT_EQ(ParaSet.PULSE[1], 65535);
    EXPECT_EQ(ParaSet.parts[0], (ActuatorParts{" 61", "H", 300}));
    EXPECT_EQ(ParaSet.SM_TIMER, 50);
    EXPECT_EQ(ParaSet.LS_SERCH_TIMER[3], 255);
    EXPECT_EQ(ParaSet.STOP_PAUSE, 1);
    ParaSet.Actuator[0] = "stale"; // built anew before writing
    ASSERT_EQ(WriteParaFile(pathOf("two.pmt")), 0);
    EXPECT_EQ(ReadWholeFile(pathOf("two.pmt")), ReadWholeFile(kTaken + "seven.pmt"));
}

TEST_F(ParaFile, HoldsAnyValidSetButForTheAcceleration) {
    std::mt19937 random(20);
    for (int i = 0; i < 100; ++i) {
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

TEST_F(ParaFile, OlderAndNewerFormsAreTaken) {
    ParaSet.STOP_PAUSE = 1;
    ParaSet.ACC_DCC = 9;
    Take("six.pmt");
    EXPECT_EQ(ParaSet.STOP_PAUSE + ParaSet.ACC_DCC, 0);
    EXPECT_EQ(ParaSet.M0_DISABLE[2], 1);
    Take("eight.pmt");
    EXPECT_EQ(ParaSet.ACC_DCC, 3);
    Take("seven.pmt");
    EXPECT_EQ(ParaSet.ACC_DCC, 0);
    EXPECT_EQ(ReadParaFile(kTaken + "sections.pmt"), 0);
    Take("lost-blank.pmt");
    EXPECT_EQ(ParaSet.parts[0], (ActuatorParts{" 44", "L", 50}));
    EXPECT_EQ(ParaSet.parts[1], (ActuatorParts{" 44", "", 50}));
    EXPECT_EQ(ParaSet.parts[2], (ActuatorParts{" 71", "", 0}));
}

TEST_F(ParaFile, ABrokenFileChangesNothing) {
    const auto refused = [this](const std::string& path, const std::string& box,
                                std::int16_t expected) {
        SCOPED_TRACE(path);
        const std::int64_t begin = platform.now;
        platform.expectFile(kOpen, FileAnswer{path, "x.pmt"});
        platform.expectBox(box);
        EXPECT_EQ(OpenParaFile(), expected);
        platform.checkAllAsked();
        EXPECT_EQ(ParaSet, SampleSet());
        return platform.now - begin;
    };
    for (const auto& file : directory_iterator(kHere + "files/broken")) {
        refused(file.path().string(), kGivenUp, 1);
    }
    for (const auto& file : directory_iterator(kHere + "files/foreign")) {
        EXPECT_EQ(refused(file.path().string(), kOtherKind, -1), 0) << "not tried again";
    }
    const std::string megabyte(1U << 20U, '7');
    refused(writeFile("line.pmt", "\"QD-K8\",\"PRM\"\r\n5\r\n" + megabyte), kGivenUp, 1);
    refused(writeFile("head.pmt", megabyte), kGivenUp, 1);
    EXPECT_EQ(refused(pathOf("missing.pmt"), kGivenUp, 1), 500) << "tried six times";
    platform.expectFile(kOpen, FileAnswer{pathOf("late.pmt"), "late.pmt"});
    platform.after(450, [this] { writeFile("late.pmt", ReadWholeFile(kTaken + "seven.pmt")); });
    EXPECT_EQ(OpenParaFile(), 0);
    EXPECT_EQ(ParaSet.SM_TIMER, 50);
}

TEST_F(ParaFile, SavesWhatTheFieldsSay) {
    ParametaHyoji();
    ParaFields.txtHomeOffset[0] = "4321";
    platform.expectFile(kSave, FileAnswer{pathOf("new.pmt"), "new.pmt"});
    platform.expectBox("Completed save parameters into the file.");
    EXPECT_EQ(SaveParameters(), 0);
    EXPECT_NE(ReadWholeFile(pathOf("new.pmt")).find("\r\n4321,"), std::string::npos);
    platform.expectFile(kSave, FileAnswer{pathOf("gone/new.pmt"), "new.pmt"});
    platform.expectBox(kNotSaved);
    EXPECT_EQ(SaveParameters(), 1);
    EXPECT_EQ(platform.now, 500);
    platform.expectFile(kSave, std::nullopt);
    EXPECT_EQ(SaveParameters(), 1);
    platform.expectFile(kOpen, std::nullopt);
    EXPECT_EQ(OpenParaFile(), -1);
    ParaFields.txtHomeVel[2].clear();
    platform.expectBox(box::kNotFilled);
    EXPECT_EQ(SaveParameters(), 1);
    for (const char* bad : {"61", "40000"}) {
        ParaFields.txtHomeVel[2] = bad;
        platform.expectBox(
            "Invalid value in some parameters.\r\nConfirm the value and try it again.");
        EXPECT_EQ(SaveParameters(), 1) << bad;
    }
    ParaFields.txtHomeVel[2] = "60";
    ThePlatform().CommonDialog1.ShowFile = [](const FileQuestion&) -> std::optional<FileAnswer> {
        throw std::runtime_error("no dialog");
    };
    platform.expectBox(kNotSaved);
    EXPECT_EQ(SaveParameters(), 1);
    platform.expectBox(kGivenUp);
    EXPECT_EQ(OpenParaFile(), 1);
}

} // namespace
} // namespace qdw8::test
