#include "parameter/factory_lists.h"

#include "device/axis_device.h"
#include "parameter/para_file.h"
#include "parameter/parameter_bench.h"

namespace qdw8::test {
namespace {

using std::filesystem::directory_iterator;

const std::string kLists = kHere + "lists/";
const std::string kFailed = "Fail to open standard parameter file.";
const std::string kOtherKind = "Fail to open standard parameter file for QD-W8.";
const std::string kMissing =
    "No standard parameter list file.\r\nPut standart parameter list file in the folder in which "
    "the program saved in order to indicate standard parameters correctly.";

/// AXIS 1 new, AXIS 2 old with its switch, AXIS 3 old with a pulse generator, AXIS 4 another model.
struct FactoryBench : ParameterBench {
    FactoryBench() {
        leaveListsBehind();
        takeLists("good");
        DevSettei.fill({" 44", "L", 100, kSet, kClear, kClear, kSet, 0, 0, 0, 0});
        DevSettei[1].NewType = DevSettei[2].NewType = kClear;
        DevSettei[1].Vertical = DevSettei[2].WithPG = kSet;
        DevSettei[3].DevSize = " 33";
        DevSettei[3].DevStroke = 50;
        for (AxisDevice& device : DevSetting) {
            device.DevSize = "J52"; // what the program works with is not asked
        }
    }
    void takeLists(const std::string& from) const {
        std::filesystem::copy(kLists + from, folder,
                              std::filesystem::copy_options::overwrite_existing |
                                  std::filesystem::copy_options::recursive);
    }
};
using Factory = Unit<FactoryBench>;

TEST_F(Factory, AllItemsComeFromTheListOfTheKind) {
    ParaSet = {};
    ParaSet.ACC_DCC = 7;
    ASSERT_EQ(LoadFactoryParameters(), 0);
    EXPECT_EQ(ParaSet.AXIS, 15);
    ASSERT_EQ(WriteParaFile(pathOf("loaded.pmt")), 0); // of two records the first counts
    EXPECT_EQ(ReadWholeFile(pathOf("loaded.pmt")), ReadWholeFile(kLists + "loaded.pmt"));
    EXPECT_EQ(KeptAxisMask, 15);
    EXPECT_EQ(ParaSet.ACC_DCC, 7);
}

// Each folder holds one list that takes the place of the good one; the box by its parent.
TEST_F(Factory, ABrokenListIsToldAndChangesNothing) {
    const auto refused = [this](const std::string& box) {
        ParaSet = SampleSet();
        const auto common = FactoryCommonTable;
        if (!box.empty()) {
            platform.expectBox(box);
        }
        platform.expectBox(kFailed);
        EXPECT_EQ(LoadFactoryParameters(), 1);
        platform.checkAllAsked();
        if (!box.empty()) {
            EXPECT_EQ(ParaSet, SampleSet());
            EXPECT_EQ(FactoryCommonTable, common);
        }
        takeLists("good");
    };
    for (const auto& [parent, box] :
         std::vector<std::pair<std::string, std::string>>{{"missing", kMissing},
                                                          {"kind", kOtherKind},
                                                          {"kind1", kOtherKind + "(1AXIS)"},
                                                          {"kind2", kOtherKind + "(2AXIS)"},
                                                          {"silent", ""}}) {
        for (const auto& broken : directory_iterator(kLists + parent)) {
            const std::string name = parent + "/" + broken.path().filename().string();
            SCOPED_TRACE(name);
            takeLists(name);
            refused(box);
        }
    }
    for (const auto& list : directory_iterator(kLists + "good")) {
        std::filesystem::remove(pathOf(list.path().filename().string()));
        refused(kMissing);
    }
    for (const char* taken : {"taken/99-records", "taken/other-family"}) {
        takeLists(taken);
        EXPECT_EQ(ReadFactoryLists(), 0) << taken;
    }
    EXPECT_EQ(FactoryDeviceTable[0].size(), 99U);
}

} // namespace
} // namespace qdw8::test
