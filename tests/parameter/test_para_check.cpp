#include "parameter/para_check.h"

#include "parameter/parameter_fixture.h"

namespace qdw8::test {
namespace {

class Check : public ParameterTest {
protected:
    Check() { ParaSet = SampleSet(); }
};

struct Limits {
    ParaRow row;
    double low;
    double high;
    bool checkedForDevice;
};

const std::vector<Limits> kLimits = {
    {kRowOFFSET, 1, 65535, true},
    {kRowPUSH, 1, 255, true},
    {kRowVEL, 1, 60, true},
    {kRowOFSVEL, 1, 60, true},
    {kRowPUSHVEL, 1, 60, true},
    {kRowSEQ, 1, 9, false},
    {kRowSTROKE, 0, 262143, true},
    {kRowLEAD, 1, 255, true},
    {kRowPULSE, 1, 65535, true},
    {kRowJOGVEL, 1, 30, true},
    {kRowAUTODRIVE, 0, 1, false},
    {kRowTYPE, 0, 5, true},
    {kRowFUNCTION, 0, 2, true},
    {kRowALM, 5, 65535, false},
    {kRowHOME_OUT, 0, 3, false},
    {kRowALM_CODE, 0, 1, false},
    {kRowGRP_ENABLE, 0, 1, false},
    {kRowSM_TIMEOUT, 0, 1, false},
    {kRowSM_TIMER, 1, 255, false},
    {kRowAXIS, 0, 15, false},
    {kRowAUTO_HOME, 0, 1, false},
    {kRowPG_TIMER, 0, 255, false},
    {kRowLS_SERCH_TIMER, 0, 255, false},
    {kRowSOFT_LIMIT, 0, 1, false},
    {kRowM0_DISABLE, 0, 1, false},
    {kRowSTOP_PAUSE, 0, 1, false},
};

TEST_F(Check, EveryItemIsHeldToItsLimitsOnEveryAxis) {
    for (const Limits& limits : kLimits) {
        const ParaItem& item = ItemOfRow(limits.row);
        for (std::size_t axis = 0; axis < (item.perAxis() ? kAxes : 1); ++axis) {
            SCOPED_TRACE("row " + std::to_string(limits.row) + " axis " + std::to_string(axis));
            for (const double good : {limits.low, limits.high}) {
                SetParaValue(ParaSet, item, axis, good);
                EXPECT_EQ(ParametaValueCheck(), 0) << good;
            }
            for (const double bad : {limits.low - 1, limits.high + 1}) {
                SetParaValue(ParaSet, item, axis, bad);
                EXPECT_EQ(ParametaValueCheck(), 1) << bad;
                EXPECT_EQ(ParametaValueCheck2(), limits.checkedForDevice ? 1 : 0) << bad;
                if (item.perAxis()) {
                    AxisOff[axis] = kSet;
                    EXPECT_EQ(ParametaValueCheck(), 0) << "an axis out of use isn't looked at";
                    AxisOff[axis] = kClear;
                }
            }
            SetParaValue(ParaSet, item, axis, limits.low);
        }
    }
    EXPECT_EQ(kLimits.size() + 1, ParaItems().size()) << "all but the acceleration setting";
}

TEST_F(Check, TheAccelerationIsNeverLookedAt) {
    for (const int value : {-1, 300, 32767}) {
        ParaSet.ACC_DCC = static_cast<std::int16_t>(value);
        EXPECT_EQ(ParametaValueCheck(), 0);
    }
}

TEST_F(Check, TheActuatorNeedsAllItsParts) {
    const auto refused = [](auto change) {
        ParaSet = SampleSet();
        change(ParaSet);
        return ParametaValueCheck() == 1 && ParametaValueCheck2() == 1;
    };
    EXPECT_TRUE(refused([](ParameterSet& set) { set.Actuator[3].clear(); }));
    EXPECT_TRUE(refused([](ParameterSet& set) { set.parts[0].size = "44"; }));
    EXPECT_TRUE(refused([](ParameterSet& set) { set.parts[1].speed.clear(); }));
    EXPECT_TRUE(refused([](ParameterSet& set) { set.parts[2].stroke = 501; }));
    EXPECT_TRUE(refused([](ParameterSet& set) { set.parts[2].stroke = -1; }));
    EXPECT_FALSE(refused([](ParameterSet& set) { set.parts[2].stroke = 500; }));
}

TEST_F(Check, WithoutAnyAxisTheCommonItemsDecide) {
    AxisOff.fill(kSet);
    ParaSet = ParameterSet{};
    EXPECT_EQ(ParametaValueCheck(), 1) << "SM TIMER is 0";
    EXPECT_EQ(ParametaValueCheck2(), 0);
    ParaSet.SM_TIMER = 1;
    EXPECT_EQ(ParametaValueCheck(), 0);
}

TEST(Actuator, IsBuiltFromItsParts) {
    EXPECT_EQ(BuildActuator({" 44", "L", 50}), " 44L050");
    EXPECT_EQ(BuildActuator({"J52", "L", 500}), "J52L500");
    EXPECT_EQ(BuildActuator({" 44", "L", 1000}), " 44LX");
    EXPECT_EQ(BuildActuator({"", "", 0}), "000");
}

TEST(Actuator, IsTakenApartWithOrWithoutItsLeadingBlank) {
    EXPECT_EQ(ParseActuator(" 44H100"), (ActuatorParts{" 44", "H", 100}));
    EXPECT_EQ(ParseActuator("J52L050"), (ActuatorParts{"J52", "L", 50}));
    EXPECT_EQ(ParseActuator("44H100"), (ActuatorParts{" 44", "H", 100}));
    EXPECT_EQ(ParseActuator(" 44 100"), (ActuatorParts{" 44", "", 100}));
    EXPECT_EQ(ParseActuator("44HX"), (ActuatorParts{" 44", "H", 0}));
    EXPECT_EQ(ParseActuator(""), (ActuatorParts{" ", "", 0}));
}

} // namespace
} // namespace qdw8::test
