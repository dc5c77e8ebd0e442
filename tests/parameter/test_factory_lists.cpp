#include "parameter/factory_lists.h"

#include "device/axis_device.h"
#include "parameter/parameter_fixture.h"

#include <filesystem>
#include <map>

namespace qdw8::test {
namespace {

const std::string kFailed = "Fail to open standard parameter file.";
const std::string kOtherKind = "Fail to open standard parameter file for QD-W8.";
const std::string kMissing =
    "No standard parameter list file.\r\nPut standart parameter list file in the folder in which "
    "the program saved in order to indicate standard parameters correctly.";

const std::string kHead = "\"QD-K8\",\"QD-STDPRM\"\r\n";
const std::string kNewList = kHead +
                             "2,13\r\n"
                             "\" 44L-100\",210,80,10,5,3,2,20000,2,400,15,1,\" 44L100\"\r\n"
                             "\" 33L-050\",220,60,11,6,4,3,10000,2,400,16,0,\" 33L050\"\r\n";
const std::string kOldList = kHead + "2,13\r\n"
                                     "\" 44L-100\",310,70,8,5,3,4,20000,2,400,12,1,\" 44L100\"\r\n"
                                     "\" 44L-100\",999,70,8,5,3,4,20000,2,400,12,1,\" 44L100\"\r\n";
const std::string kCommonHead = "\"QD-K8\",\"QD-CMNPRM\"\r\n";
const std::string kCommonBody = "3\r\n\"PG\",2,3\r\n9,0,2\r\n9,401,402\r\n"
                                "\"ETC\",5,3\r\n9,1,9\r\n9,1,9\r\n9,1,9\r\n9,1,9\r\n9,51,9\r\n"
                                "\"SPECIAL\",7,3\r\n9,9,9\r\n9,1,9\r\n9,11,9\r\n9,31,9\r\n"
                                "9,1,9\r\n9,1,9\r\n9,1,9\r\n";

class Factory : public ParameterTest {
protected:
    Factory() {
        leaveListsBehind();
        writeFile("w8nqdstpr.lst", kNewList);
        writeFile("w8qdstpr.lst", kOldList);
        writeFile("w8cmstpr.lst", kCommonHead + kCommonBody);
        for (AxisDevice& device : DevSettei) {
            device.DevSize = " 44";
            device.DevSpeed = "L";
            device.DevStroke = 100;
        }
        DevSettei[1].NewType = kClear;
        DevSettei[1].Vertical = kSet;
        DevSettei[2].NewType = kClear;
        DevSettei[2].WithPG = kSet;
        DevSettei[3].DevSize = " 33";
        DevSettei[3].DevStroke = 50;
        // What the program works with is not asked.
        for (AxisDevice& device : DevSetting) {
            device.DevSize = "J52";
        }
    }
};

TEST_F(Factory, AllItemsComeFromTheListOfTheKind) {
    AxisOff[0] = kClear;
    ParaSet.ACC_DCC = 7;
    ASSERT_EQ(LoadFactoryParameters(), 0);
    EXPECT_EQ(ParaSet.OFFSET, (AxisNumbers{210, 310, 310, 220})) << "the first record counts";
    EXPECT_EQ(ParaSet.PUSH, (AxisWords{80, 70, 70, 60}));
    EXPECT_EQ(ParaSet.VEL, (AxisWords{10, 8, 8, 11}));
    EXPECT_EQ(ParaSet.OFSVEL, (AxisWords{5, 5, 5, 6}));
    EXPECT_EQ(ParaSet.PUSHVEL, (AxisWords{3, 3, 3, 4}));
    EXPECT_EQ(ParaSet.SEQ, (AxisWords{2, 4, 4, 3}));
    EXPECT_EQ(ParaSet.STROKE, (AxisNumbers{20000, 20000, 20000, 10000}));
    EXPECT_EQ(ParaSet.LEAD, (AxisWords{2, 2, 2, 2}));
    EXPECT_EQ(ParaSet.PULSE, (AxisLongs{400, 400, 400, 400}));
    EXPECT_EQ(ParaSet.JOGVEL, (AxisWords{15, 12, 12, 16}));
    EXPECT_EQ(ParaSet.AUTODRIVE, (AxisWords{1, 1, 1, 0}));
    EXPECT_EQ(ParaSet.TYPE, (AxisWords{1, 1, 0, 1})) << "new, old with switch, old, new";
    EXPECT_EQ(ParaSet.Actuator[3], " 33L050");
    EXPECT_EQ(ParaSet.parts[3], (ActuatorParts{" 33", "L", 50}));
    EXPECT_EQ(ParaSet.FUNCTION, (AxisWords{0, 0, 2, 0}));
    EXPECT_EQ(ParaSet.ALM, (AxisNumbers{401, 401, 402, 401}));
    EXPECT_EQ(ParaSet.PG_TIMER, (AxisWords{11, 11, 11, 11}));
    EXPECT_EQ(ParaSet.LS_SERCH_TIMER, (AxisWords{31, 31, 31, 31}));
    EXPECT_EQ(ParaSet.SOFT_LIMIT, (AxisWords{1, 1, 1, 1}));
    EXPECT_EQ(ParaSet.M0_DISABLE, (AxisWords{1, 1, 1, 1}));
    EXPECT_EQ(ParaSet.SM_TIMER, 51);
    EXPECT_EQ(ParaSet.HOME_OUT + ParaSet.ALM_CODE + ParaSet.GRP_ENABLE + ParaSet.SM_TIMEOUT, 4);
    EXPECT_EQ(ParaSet.AUTO_HOME + ParaSet.STOP_PAUSE, 2);
    EXPECT_EQ(ParaSet.AXIS, 15);
    EXPECT_EQ(KeptAxisMask, 15);
    EXPECT_EQ(ParaSet.ACC_DCC, 7);
}

TEST_F(Factory, ADeviceWriteTakesWhatTheDeviceDecides) {
    ParaSet = SampleSet();
    const ParameterSet before = ParaSet;
    ASSERT_EQ(LoadFactoryParametersForDevice(), 0);
    EXPECT_EQ(ParaSet.OFFSET, (AxisNumbers{210, 310, 310, 220}));
    EXPECT_EQ(ParaSet.TYPE, (AxisWords{1, 1, 0, 1}));
    EXPECT_EQ(ParaSet.FUNCTION, (AxisWords{0, 0, 2, 0}));
    EXPECT_EQ(ParaSet.Actuator[3], " 33L050");
    ParameterSet rest = ParaSet;
    for (const ParaRow row : {kRowOFFSET, kRowPUSH, kRowVEL, kRowOFSVEL, kRowPUSHVEL, kRowSTROKE,
                              kRowLEAD, kRowPULSE, kRowJOGVEL, kRowTYPE, kRowFUNCTION}) {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const ParaItem& item = ItemOfRow(row);
            SetParaValue(rest, item, axis, ParaValue(before, item, axis));
        }
    }
    rest.Actuator = before.Actuator;
    rest.parts = before.parts;
    EXPECT_EQ(rest, before) << "nothing else was touched";

    KeepAxisFlag = kSet;
    KeptAxisMask = 5;
    ASSERT_EQ(LoadFactoryParametersForDevice(), 0);
    EXPECT_EQ(ParaSet.AXIS, 5);
}

TEST_F(Factory, TheMaskFollowsTheAxesUnlessItIsKept) {
    AxisOff = {kSet, kClear, kSet, kClear};
    ParaSet = SampleSet();
    const ParameterSet before = ParaSet;
    ASSERT_EQ(LoadFactoryParameters(), 0);
    EXPECT_EQ(ParaSet.AXIS, 10);
    EXPECT_EQ(KeptAxisMask, 10);
    EXPECT_EQ(ParaSet.OFFSET[0], before.OFFSET[0]) << "an axis out of use is left alone";
    EXPECT_EQ(ParaSet.PG_TIMER[2], before.PG_TIMER[2]);
    KeepAxisFlag = kSet;
    KeptAxisMask = 3;
    ASSERT_EQ(LoadFactoryParameters(), 0);
    EXPECT_EQ(ParaSet.AXIS, 3);
    EXPECT_EQ(KeptAxisMask, 3);
}

TEST_F(Factory, AnAxisWithoutARecordIsToldAndTheOthersAreLoaded) {
    DevSettei[0].DevStroke = 150;
    platform.expectBox(kFailed);
    EXPECT_EQ(LoadFactoryParameters(), 1);
    EXPECT_EQ(ParaSet.OFFSET, (AxisNumbers{0, 310, 310, 220}));
    EXPECT_EQ(ParaSet.ALM[0], 401) << "the common items don't ask for a record";
    EXPECT_EQ(ParaSet.AXIS, 15);
}

TEST_F(Factory, AnActuatorTextOfAnotherLengthIsRefused) {
    writeFile("w8nqdstpr.lst", kHead +
                                   "2,13\r\n"
                                   "\" 44L-100\",210,80,10,5,3,2,20000,2,400,15,1,\"44L100\"\r\n"
                                   "\" 33L-050\",220,60,11,6,4,3,10000,2,400,16,0,\" 33L050\"");
    platform.expectBox(kFailed);
    EXPECT_EQ(LoadFactoryParameters(), 1);
    EXPECT_EQ(ParaSet.OFFSET[3], 220);
}

TEST_F(Factory, AForeignFamilyTakesTheListOfTheAxisBefore) {
    FamilyText = {"QD", "HN", "HN", "QD"};
    ASSERT_EQ(LoadFactoryParameters(), 0);
    EXPECT_EQ(ParaSet.OFFSET, (AxisNumbers{210, 210, 210, 220}));
    FamilyText[0] = "HN";
    ParaSet = SampleSet();
    platform.expectBox(kMissing);
    platform.expectBox(kFailed);
    EXPECT_EQ(LoadFactoryParameters(), 1);
    EXPECT_EQ(ParaSet, SampleSet());
}

struct BrokenList {
    const char* file;
    const char* name;
    std::string bytes;
    std::string box;
};

std::string Record(int count) {
    std::string text = kHead + std::to_string(count) + ",13\r\n";
    for (int i = 0; i < count; ++i) {
        text += "\" 44L-100\",210,80,10,5,3,2,20000,2,400,15,1,\" 44L100\"\r\n";
    }
    return text;
}

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), with);
}

std::vector<BrokenList> Shelf() {
    const std::string common = kCommonHead + kCommonBody;
    const std::string binary("\xFF\x00\x01\"\x80\r\n", 7);
    const char* list = "w8nqdstpr.lst";
    const char* old = "w8qdstpr.lst";
    const char* com = "w8cmstpr.lst";
    const std::string otherKind1 = kOtherKind + "(1AXIS)";
    return {
        {list, "empty", "", kMissing},
        {list, "wrong head", Replaced(kNewList, "QD-K8", "QD-K9"), otherKind1},
        {list, "a device list", "78\r\n\" 44L-100\",2,400,1,1\r\n", otherKind1},
        {old, "wrong head of the old list", Replaced(kOldList, "QD-STDPRM", "QD-CMNPRM"),
         kOtherKind + "(2AXIS)"},
        {list, "cut in a record", kNewList.substr(0, kNewList.size() - 30), kMissing},
        {list, "cut in a text", kNewList.substr(0, kNewList.size() - 3), kMissing},
        {list, "count too large", Replaced(kNewList, "2,13", "3,13"), kMissing},
        {list, "negative count", Replaced(kNewList, "2,13", "-2,13"), kMissing},
        {list, "text for the count", Replaced(kNewList, "2,13", "two,13"), kMissing},
        {list, "text for a number", Replaced(kNewList, "210", "abc"), kMissing},
        {list, "number too wide", Replaced(kNewList, ",80,", ",40000,"), kMissing},
        {list, "100 records", Record(100), kMissing},
        {list, "a megabyte of one line", kHead + std::string(1 << 20, '1'), kMissing},
        {list, "binary", binary, kMissing},
        {com, "empty", "", kMissing},
        {com, "wrong head", Replaced(common, "QD-CMNPRM", "QD-STDPRM"), kOtherKind},
        {com, "wrong section", Replaced(common, "ETC", "PG"), kMissing},
        {com, "too few sections", Replaced(common, "3\r\n", "2\r\n"), kMissing},
        {com, "too many rows", Replaced(common, "\"PG\",2", "\"PG\",3"), kMissing},
        {com, "too many columns", Replaced(common, "\"PG\",2,3", "\"PG\",2,4"), kMissing},
        {com, "text for a number", Replaced(common, "51", "long"), kMissing},
        {com, "cut", common.substr(0, common.size() - 8), kMissing},
    };
}

TEST_F(Factory, ABrokenListIsToldAndChangesNothing) {
    ASSERT_EQ(ReadFactoryLists(), 0);
    const auto common = FactoryCommonTable;
    const std::map<std::string, std::string> whole = {{"w8nqdstpr.lst", kNewList},
                                                      {"w8qdstpr.lst", kOldList},
                                                      {"w8cmstpr.lst", kCommonHead + kCommonBody}};
    for (const BrokenList& list : Shelf()) {
        SCOPED_TRACE(std::string(list.file) + ": " + list.name);
        writeFile(list.file, list.bytes);
        ParaSet = SampleSet();
        platform.expectBox(list.box);
        platform.expectBox(kFailed);
        EXPECT_EQ(LoadFactoryParameters(), 1);
        platform.checkAllAsked();
        EXPECT_EQ(ParaSet, SampleSet());
        EXPECT_EQ(FactoryCommonTable, common);
        EXPECT_EQ(FactoryDeviceTable[0].size(), 2U);
        writeFile(list.file, whole.at(list.file));
    }
}

TEST_F(Factory, AMissingListIsTold) {
    for (const char* name : {"w8nqdstpr.lst", "w8qdstpr.lst", "w8cmstpr.lst"}) {
        const std::string hidden = pathOf(name) + ".away";
        std::filesystem::rename(pathOf(name), hidden);
        platform.expectBox(kMissing);
        platform.expectBox(kFailed);
        EXPECT_EQ(LoadFactoryParametersForDevice(), 1) << name;
        std::filesystem::rename(hidden, pathOf(name));
    }
}

TEST_F(Factory, AListOf99RecordsAndOneOfTheOtherFamilyAreTaken) {
    writeFile("w8nqdstpr.lst", Record(99));
    writeFile("w8qdstpr.lst", Replaced(kOldList, "QD-STDPRM", "HN-STDPRM"));
    EXPECT_EQ(ReadFactoryLists(), 0);
    EXPECT_EQ(FactoryDeviceTable[0].size(), 99U);
}

TEST_F(Factory, AFigureThatNoItemHoldsLeavesTheSetAlone) {
    writeFile("w8cmstpr.lst", kCommonHead + Replaced(kCommonBody, "9,51,9", "9,51000,9"));
    ParaSet = SampleSet();
    platform.expectBox(kFailed);
    EXPECT_EQ(LoadFactoryParameters(), 1);
    EXPECT_EQ(ParaSet, SampleSet());
}

} // namespace
} // namespace qdw8::test
