#include "parameter/para_fields.h"

#include "app/string_table.h"
#include "device/axis_device.h"
#include "parameter/parameter_fixture.h"

#include <utility>

namespace qdw8::test {
namespace {

class Fields : public ParameterTest {
protected:
    Fields() {
        ParaSet = SampleSet();
        ParaSet.TYPE = {0, 1, 2, 3};
        ParametaHyoji();
    }
};

TEST_F(Fields, WhatIsShownIsTakenBackUnchanged) {
    const ParameterSet shown = ParaSet;
    for (int mask = 0; mask < 16; ++mask) {
        SetAxisOffByMask(AxisOff, mask);
        ParaSet = shown;
        ParaSet.ACC_DCC = 77;
        EXPECT_EQ(TorikomiParametaValue(), 0);
        EXPECT_EQ(ParaSet.ACC_DCC, 77) << "it has no field";
        ParaSet.ACC_DCC = shown.ACC_DCC;
        EXPECT_EQ(ParaSet, shown) << mask;
    }
}

TEST_F(Fields, AreTakenOfTheAxesInUseOnly) {
    AxisOff[1] = kSet;
    const ParameterSet before = ParaSet;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        ParaFields.txtHomePush[axis] = "9";
        ParaFields.comboActSize[axis] = " 52";
        ParaFields.comboActSpeed[axis] = " H ";
        ParaFields.comboActStroke[axis] = "450";
    }
    ASSERT_EQ(TorikomiParametaValue(), 0);
    EXPECT_EQ(ParaSet.PUSH, (AxisWords{9, before.PUSH[1], 9, 9}));
    EXPECT_EQ(ParaSet.Actuator[0], " 52H450");
    EXPECT_EQ(ParaSet.parts[3], (ActuatorParts{" 52", "H", 450}));
    EXPECT_EQ(ParaSet.Actuator[1], before.Actuator[1]);
    EXPECT_EQ(DevSettei[0].DevSize, " 52");
    EXPECT_EQ(DevSettei[0].DevSpeed, "H");
    EXPECT_EQ(DevSettei[1].DevSize, "");
    EXPECT_EQ(DevSetting[0].DevSize, "") << "what the program works with is another thing";
}

TEST_F(Fields, NumbersAreTakenWhole) {
    ParaFields.txtHomeOffset[0] = "12.5";
    ParaFields.txtAxisStroke[0] = "13.5";
    ParaFields.txtPgAlarm[0] = "abc";
    ParaFields.txtAxisPulse[0] = "60000";
    ASSERT_EQ(TorikomiParametaValue(), 0);
    EXPECT_EQ(ParaSet.OFFSET[0], 12);
    EXPECT_EQ(ParaSet.STROKE[0], 14);
    EXPECT_EQ(ParaSet.ALM[0], 0);
    EXPECT_EQ(ParaSet.PULSE[0], 60000);
}

TEST_F(Fields, AValueTooWideRefusesTheWhole) {
    const ParameterSet before = ParaSet;
    const std::vector<std::pair<AxisTexts ParaFieldTexts::*, std::string>> cases = {
        {&ParaFieldTexts::txtHomePush, "32768"},
        {&ParaFieldTexts::txtAxisPulse, "2147483648"},
        {&ParaFieldTexts::txtHomeOffset, "99999999999"},
        {&ParaFieldTexts::comboActStroke, "40000"}};
    for (const auto& [field, text] : cases) {
        ParametaHyoji();
        ParaFields.txtHomeVel[0] = "7";
        (ParaFields.*field)[3] = text;
        EXPECT_EQ(TorikomiParametaValue(), 1) << text;
        EXPECT_EQ(ParaSet, before);
    }
}

TEST_F(Fields, AListWithoutAValidRowGivesZero) {
    ParaFields.comboEtcHnOrQd = {-1, 3, 4, 5};
    ParaFields.comboSoftLimit = {1, 2, 3, -1};
    ParaFields.comboM0Disable = {1, 4, 5, 0};
    ParaFields.comboAxisAutoDrv = {1, 2, -1, 0};
    ParaFields.comboPgFunc = {2, 3, -1, 1};
    ParaFields.comboHomeOut = 4;
    ParaFields.comboStopPause = -1;
    ASSERT_EQ(TorikomiParametaValue(), 0);
    EXPECT_EQ(ParaSet.TYPE, (AxisWords{0, 3, 0, 0}));
    EXPECT_EQ(ParaSet.SOFT_LIMIT, (AxisWords{1, 0, 0, 0}));
    EXPECT_EQ(ParaSet.M0_DISABLE, (AxisWords{1, 0, 0, 0}));
    EXPECT_EQ(ParaSet.AUTODRIVE, (AxisWords{1, 0, 0, 0}));
    EXPECT_EQ(ParaSet.FUNCTION, (AxisWords{2, 0, 0, 1}));
    EXPECT_EQ(ParaSet.HOME_OUT, 0);
    EXPECT_EQ(ParaSet.STOP_PAUSE, 0);
}

TEST_F(Fields, AValueWithoutARowSelectsNothing) {
    ParaSet.TYPE = {0, 3, 4, 5};
    ParaSet.FUNCTION = {0, 2, 3, -1};
    ParaSet.SOFT_LIMIT = {0, 1, 2, 7};
    ParaSet.HOME_OUT = 4;
    ParaSet.AUTO_HOME = 1;
    ParametaHyoji();
    EXPECT_EQ(ParaFields.comboEtcHnOrQd, (AxisLists{0, 3, -1, -1}));
    EXPECT_EQ(ParaFields.comboPgFunc, (AxisLists{0, 2, -1, -1}));
    EXPECT_EQ(ParaFields.comboSoftLimit, (AxisLists{0, 1, -1, -1}));
    EXPECT_EQ(ParaFields.comboHomeOut, -1);
    EXPECT_EQ(ParaFields.comboAutoHome, 1);
    EXPECT_EQ(ParaFields.txtActuator[2], "J52L100");
}

TEST_F(Fields, TheListsOfferTheTextsOfTheirValues) {
    const auto texts = [](ParaRow row) {
        std::vector<std::string> all;
        for (const ParaListRow& entry : ParaListRows(row)) {
            all.push_back(ResText(entry.textId) + "=" + std::to_string(entry.value));
        }
        return all;
    };
    EXPECT_EQ(texts(kRowTYPE),
              (std::vector<std::string>{"QD(PUSH)=0", "QD(LS)=1", "RTW=2", "GG=3"}));
    EXPECT_EQ(texts(kRowSTOP_PAUSE), (std::vector<std::string>{"0. STOP=0", "1. PAUSE=1"}));
    EXPECT_EQ(texts(kRowAUTODRIVE), (std::vector<std::string>{"0. Drive-ON=0", "1. Drive-OFF=1"}));
    EXPECT_TRUE(texts(kRowOFFSET).empty());
    EXPECT_TRUE(texts(kRowACC_DCC).empty());
}

TEST_F(Fields, AnEmptyTextOfAnAxisInUseIsFound) {
    EXPECT_TRUE(ParaFieldsFilled());
    const std::vector<AxisTexts ParaFieldTexts::*> texts = {
        &ParaFieldTexts::txtHomeOffset,  &ParaFieldTexts::txtHomePush,
        &ParaFieldTexts::txtHomeVel,     &ParaFieldTexts::txtHomeOfsVel,
        &ParaFieldTexts::txtHomePushVel, &ParaFieldTexts::txtHomeOrder,
        &ParaFieldTexts::txtAxisStroke,  &ParaFieldTexts::txtAxisLead,
        &ParaFieldTexts::txtAxisPulse,   &ParaFieldTexts::txtJogHighVel,
        &ParaFieldTexts::txtPgAlarm,     &ParaFieldTexts::txtPgCheckTimer,
        &ParaFieldTexts::txtLsSerchTimer};
    for (const auto field : texts) {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const std::string kept = (ParaFields.*field)[axis];
            (ParaFields.*field)[axis].clear();
            EXPECT_FALSE(ParaFieldsFilled());
            AxisOff[axis] = kSet;
            EXPECT_TRUE(ParaFieldsFilled());
            AxisOff[axis] = kClear;
            (ParaFields.*field)[axis] = kept;
        }
    }
    ParaFields.txtOneAxis.clear();
    EXPECT_FALSE(ParaFieldsFilled());
    ParaFields.txtOneAxis = "15";
    ParaFields.txtSmTimeoutTimer.clear();
    EXPECT_FALSE(ParaFieldsFilled());
    AxisOff.fill(kSet);
    EXPECT_FALSE(ParaFieldsFilled()) << "the common fields count without any axis";
}

TEST_F(Fields, AnAxisOutOfUseLosesItsTexts) {
    AxisOff[2] = kSet;
    int told = 0;
    Screens().frmParameta2 = [&told] { ++told; };
    YukoJikuHyojiSettei();
    EXPECT_EQ(ParaFields.txtHomeOffset[2], "");
    EXPECT_EQ(ParaFields.comboActSize[2], "");
    EXPECT_NE(ParaFields.txtHomeOffset[1], "");
    EXPECT_NE(ParaFields.txtPgCheckTimer[2], "") << "behind the lock";
    ParaFields.chkTokuParaChange = true;
    YukoJikuHyojiSettei();
    EXPECT_EQ(ParaFields.txtPgCheckTimer[2], "");
    EXPECT_EQ(told, 2);
}

} // namespace
} // namespace qdw8::test
