#include "parameter/para_check.h"

#include "parameter/parameter_bench.h"

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
    const ActuatorParts good{" 44", "L", 500};
    for (const auto& parts : std::vector<ActuatorParts>{
             good, {"44", "L", 50}, {" 44", "", 50}, {" 44", "L", 501}, {" 44", "L", -1}}) {
        for (const char* text : {"J52L050", ""}) {
            ParaSet.parts[3] = parts;
            ParaSet.Actuator[3] = text;
            const int bad = parts == good && *text != '\0' ? 0 : 1;
            EXPECT_EQ(ParametaValueCheck(), bad) << parts.stroke;
            EXPECT_EQ(ParametaValueCheck2(), bad) << parts.stroke;
        }
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
