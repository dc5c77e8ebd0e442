#include "parameter/para_fields.h"

#include "app/number_forms.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "parameter/parameter_bench.h"

namespace qdw8::test {
namespace {

using F = ParaFieldTexts;
using FieldsTest = ParameterTest;

const std::vector<std::pair<ParaRow, AxisTexts F::*>> kTexts = {
    {kRowOFFSET, &F::txtHomeOffset},
    {kRowPUSH, &F::txtHomePush},
    {kRowVEL, &F::txtHomeVel},
    {kRowOFSVEL, &F::txtHomeOfsVel},
    {kRowPUSHVEL, &F::txtHomePushVel},
    {kRowSEQ, &F::txtHomeOrder},
    {kRowSTROKE, &F::txtAxisStroke},
    {kRowLEAD, &F::txtAxisLead},
    {kRowPULSE, &F::txtAxisPulse},
    {kRowJOGVEL, &F::txtJogHighVel},
    {kRowALM, &F::txtPgAlarm},
    {kRowPG_TIMER, &F::txtPgCheckTimer},
    {kRowLS_SERCH_TIMER, &F::txtLsSerchTimer}};
const std::vector<std::pair<ParaRow, AxisLists F::*>> kLists = {
    {kRowAUTODRIVE, &F::comboAxisAutoDrv},
    {kRowTYPE, &F::comboEtcHnOrQd},
    {kRowFUNCTION, &F::comboPgFunc},
    {kRowSOFT_LIMIT, &F::comboSoftLimit},
    {kRowM0_DISABLE, &F::comboM0Disable}};
const std::vector<std::pair<ParaRow, int F::*>> kCommonLists = {
    {kRowHOME_OUT, &F::comboHomeOut},        {kRowALM_CODE, &F::comboEtcAlmCode},
    {kRowGRP_ENABLE, &F::comboEtcGrpEnable}, {kRowSM_TIMEOUT, &F::comboSmInTimer},
    {kRowAUTO_HOME, &F::comboAutoHome},      {kRowSTOP_PAUSE, &F::comboStopPause}};

// Each item alone, so that no field can stand for another one.
TEST_F(FieldsTest, EachItemHasAFieldOfItsOwnBothWays) {
    EachItem([](const ParaItem& item, std::size_t axis) {
        if (item.row == kRowACC_DCC) {
            return; // it has none
        }
        SCOPED_TRACE("row " + std::to_string(item.row) + " axis " + std::to_string(axis));
        ParaSet = ParameterSet{};
        ParametaHyoji();
        F expected = ParaFields;
        for (const auto& [row, field] : kTexts) {
            (expected.*field)[axis] = row == item.row ? "1" : "0";
        }
        for (const auto& [row, field] : kLists) {
            (expected.*field)[axis] = row == item.row ? 1 : 0;
        }
        for (const auto& [row, field] : kCommonLists) {
            expected.*field = row == item.row ? 1 : 0;
        }
        expected.txtSmTimeoutTimer = item.row == kRowSM_TIMER ? "1" : "0";
        expected.txtOneAxis = item.row == kRowAXIS ? "1" : "0";
        SetParaValue(ParaSet, item, axis, 1);
        const ParameterSet set = ParaSet;
        ParametaHyoji();
        EXPECT_EQ(ParaFields, expected);
        ParaSet = ParameterSet{};
        ASSERT_EQ(TorikomiParametaValue(), 0);
        ParaSet.Actuator = set.Actuator;
        ParaSet.parts = set.parts;
        EXPECT_EQ(ParaSet, set);
    });
}

TEST_F(FieldsTest, AreTakenOfTheAxesInUseOnly) {
    ParametaHyoji();
    AxisOff[1] = kSet;
    const ParameterSet before = ParaSet;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        ParaFields.txtHomePush[axis] = "9";
        ParaFields.comboActSize[axis] = " 52";
        ParaFields.comboActSpeed[axis] = " H ";
        ParaFields.comboActStroke[axis] = "450";
    }
    ParaFields.txtHomeOffset[0] = "12.5";
    ParaFields.txtAxisStroke[0] = "13.5";
    ParaFields.txtPgAlarm[0] = "abc";
    ASSERT_EQ(TorikomiParametaValue(), 0);
    EXPECT_EQ(ParaSet.PUSH, (AxisWords{9, before.PUSH[1], 9, 9}));
    EXPECT_EQ(ParaSet.parts[3], (ActuatorParts{" 52", "H", 450}));
    EXPECT_EQ(ParaSet.Actuator[0] + ParaSet.Actuator[1], " 52H450" + before.Actuator[1]);
    EXPECT_EQ(DevSettei[0].DevSize, " 52");
    EXPECT_EQ(DevSettei[0].DevSpeed, "H");
    EXPECT_EQ(DevSettei[1].DevSize + DevSetting[0].DevSize, "");
    EXPECT_EQ(ParaSet.OFFSET[0], 12);
    EXPECT_EQ(ParaSet.STROKE[0], 14);
    EXPECT_EQ(ParaSet.ALM[0], 0);
    const ParameterSet taken = ParaSet;
    for (const auto& [field, text] :
         std::vector<std::pair<AxisTexts F::*, std::string>>{{&F::txtHomePush, "32768"},
                                                             {&F::txtAxisPulse, "2147483648"},
                                                             {&F::txtHomeOffset, "99999999999"},
                                                             {&F::comboActStroke, "40000"}}) {
        ParametaHyoji();
        ParaFields.txtHomeVel[0] = "7";
        (ParaFields.*field)[3] = text;
        EXPECT_EQ(TorikomiParametaValue(), 1) << text;
        EXPECT_EQ(ParaSet, taken);
    }
}

TEST_F(FieldsTest, RowsAndValuesOutsideAList) {
    ParametaHyoji();
    ParaFields.comboEtcHnOrQd = {-1, 3, 4, 5};
    ParaFields.comboSoftLimit = {1, 2, 3, -1};
    ParaFields.comboM0Disable = {1, 4, 5, 0};
    ParaFields.comboHomeOut = 4;
    ASSERT_EQ(TorikomiParametaValue(), 0);
    EXPECT_EQ(ParaSet.TYPE, (AxisWords{0, 3, 0, 0}));
    EXPECT_EQ(ParaSet.SOFT_LIMIT, (AxisWords{1, 0, 0, 0}));
    EXPECT_EQ(ParaSet.M0_DISABLE, (AxisWords{1, 0, 0, 0}));
    EXPECT_EQ(ParaSet.HOME_OUT, 0);
    ParaSet.TYPE = {0, 3, 4, 5};
    ParaSet.FUNCTION = {0, 2, 3, -1};
    ParaSet.HOME_OUT = 4;
    ParametaHyoji();
    EXPECT_EQ(ParaFields.comboEtcHnOrQd, (AxisLists{0, 3, -1, -1}));
    EXPECT_EQ(ParaFields.comboPgFunc, (AxisLists{0, 2, -1, -1}));
    EXPECT_EQ(ParaFields.comboHomeOut, -1);
    EXPECT_EQ(ParaFields.txtActuator[2], "J52L100");
    std::string texts;
    for (const ParaRow row : {kRowTYPE, kRowSTOP_PAUSE, kRowAUTODRIVE, kRowOFFSET}) {
        for (const ParaListRow& entry : ParaListRows(row)) {
            texts += ResText(entry.textId) + "=" + std::to_string(entry.value) + ";";
        }
    }
    EXPECT_EQ(texts, "QD(PUSH)=0;QD(LS)=1;RTW=2;GG=3;0. STOP=0;1. PAUSE=1;"
                     "0. Drive-ON=0;1. Drive-OFF=1;");
}

TEST_F(FieldsTest, AnEmptyTextOfAnAxisInUseIsFound) {
    ParametaHyoji();
    EXPECT_TRUE(ParaFieldsFilled());
    for (const auto& [row, field] : kTexts) {
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
    AxisOff.fill(kSet);
    for (std::string* const field : {&ParaFields.txtOneAxis, &ParaFields.txtSmTimeoutTimer}) {
        const std::string kept = *field;
        field->clear();
        EXPECT_FALSE(ParaFieldsFilled()) << "the common fields count without any axis";
        *field = kept;
    }
    AxisOff = {kClear, kClear, kSet, kClear};
    int told = 0;
    Screens().frmParameta2 = [&told] { ++told; };
    YukoJikuHyojiSettei();
    EXPECT_EQ(ParaFields.txtHomeOffset[2] + ParaFields.comboActSize[2], "");
    EXPECT_NE(ParaFields.txtHomeOffset[1], "");
    EXPECT_NE(ParaFields.txtPgCheckTimer[2], "") << "behind the lock";
    ParaFields.chkTokuParaChange = true;
    YukoJikuHyojiSettei();
    EXPECT_EQ(ParaFields.txtPgCheckTimer[2], "");
    EXPECT_EQ(told, 2);
}

} // namespace
} // namespace qdw8::test
