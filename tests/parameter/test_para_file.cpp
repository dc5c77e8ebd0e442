#include "parameter/para_file.h"

#include "parameter/para_rows.h"
#include "parameter/parameter_bench.h"

namespace qdw8::test {
namespace {

using std::filesystem::directory_iterator;
using ParaFile = ParameterTest;

const std::string kTaken = kHere + "files/taken/";
const std::string kOtherKind = "Not parameter file for QD-W8.\r\nOpening file is canceled.";
const std::string kGivenUp = "Fail to open parameter file.";
const FileQuestion kOpen{FileQuestion::Kind::Open,
                         "Open Parameter file",
                         "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*",
                         "pmt",
                         "",
                         "",
                         kFileMustExist};

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

} // namespace
} // namespace qdw8::test
