#include "parameter/para_check.h"

#include "parameter/parameter_bench.h"

#include <functional>
#include <sstream>

namespace qdw8::test {
namespace {

TEST_F(ParameterTest, EveryItemIsHeldToItsLimitsOnEveryAxis) {
    std::istringstream table(ReadWholeFile(kHere + "limits.txt"));
    std::string head;
    std::getline(table, head);
    std::size_t rows = 0;
    int row = 0;
    double low = 0;
    double high = 0;
    for (char device = 0; table >> row >> low >> high >> device; ++rows) {
        const ParaItem& item = ItemOfRow(static_cast<ParaRow>(row));
        for (std::size_t axis = 0; axis < (item.perAxis() ? kAxes : 1); ++axis) {
            SCOPED_TRACE("row " + std::to_string(row) + " axis " + std::to_string(axis));
            for (const double good : {low, high}) {
                SetParaValue(ParaSet, item, axis, good);
                EXPECT_EQ(ParametaValueCheck(), 0) << good;
            }
            for (const double bad : {low - 1, high + 1}) {
                SetParaValue(ParaSet, item, axis, bad);
                EXPECT_EQ(ParametaValueCheck(), 1) << bad;
                EXPECT_EQ(ParametaValueCheck2(), device == 'D' ? 1 : 0) << bad;
                AxisOff[axis] = kSet;
                EXPECT_EQ(ParametaValueCheck(), item.perAxis() ? 0 : 1);
                AxisOff[axis] = kClear;
            }
            SetParaValue(ParaSet, item, axis, low);
        }
    }
    EXPECT_EQ(rows + 1, ParaItems().size()) << "all but the acceleration setting";
    ParaSet.ACC_DCC = 32767;
    EXPECT_EQ(ParametaValueCheck(), 0) << "which is never looked at";
    AxisOff.fill(kSet);
    ParaSet = ParameterSet{};
    EXPECT_EQ(ParametaValueCheck(), 1) << "the common items count without any axis";
    EXPECT_EQ(ParametaValueCheck2(), 0);
}

TEST_F(ParameterTest, TheActuatorNeedsAllItsParts) {
    const std::vector<std::function<void(ParameterSet&)>> changes = {
        [](ParameterSet& set) { set.Actuator[3].clear(); },
        [](ParameterSet& set) { set.parts[0].size = "44"; },
        [](ParameterSet& set) { set.parts[1].speed.clear(); },
        [](ParameterSet& set) { set.parts[2].stroke = 501; },
        [](ParameterSet& set) { set.parts[2].stroke = -1; },
        [](ParameterSet& set) { set.parts[2].stroke = 500; },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        ParaSet = SampleSet();
        changes[i](ParaSet);
        EXPECT_EQ(ParametaValueCheck(), i < 5 ? 1 : 0) << i;
        EXPECT_EQ(ParametaValueCheck2(), i < 5 ? 1 : 0) << i;
    }
    EXPECT_EQ(BuildActuator({" 44", "L", 50}), " 44L050");
    EXPECT_EQ(BuildActuator({" 44", "L", 1000}), " 44LX");
    EXPECT_EQ(ParseActuator("J52L050"), (ActuatorParts{"J52", "L", 50}));
    EXPECT_EQ(ParseActuator("44H100"), (ActuatorParts{" 44", "H", 100})) << "its blank was lost";
    EXPECT_EQ(ParseActuator(" 44 100"), (ActuatorParts{" 44", "", 100}));
    EXPECT_EQ(ParseActuator("44HX"), (ActuatorParts{" 44", "H", 0}));
}

} // namespace
} // namespace qdw8::test
