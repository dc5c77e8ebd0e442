#include "parameter/para_fields.h"

#include "app/number_forms.h"
#include "app/screens.h"
#include "device/axis_device.h"
#include "platform/fault.h"

#include <algorithm>
#include <utility>

namespace qdw8 {

ParaFieldTexts ParaFields;

namespace {

using F = ParaFieldTexts;

struct AxisTextField {
    ParaRow row;
    AxisTexts F::*field;
};

constexpr std::array<AxisTextField, 11> kAxisTextFields = {{
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
}};

/// The text fields behind the lock of the special items.
constexpr std::array<AxisTextField, 2> kSpecialTextFields = {{
    {kRowPG_TIMER, &F::txtPgCheckTimer},
    {kRowLS_SERCH_TIMER, &F::txtLsSerchTimer},
}};

constexpr std::array<AxisTexts F::*, 3> kActuatorLists = {&F::comboActSize, &F::comboActSpeed,
                                                          &F::comboActStroke};

/// How a value is found in a list: by what is hidden behind the rows, or by the row's number.
enum class Find { ByValue, ByIndex };

struct AxisListField {
    ParaRow row;
    AxisLists F::*field;
    int lastRow; ///< rows beyond it count as none; some bounds are wider than the list
    Find find;
};

constexpr std::array<AxisListField, 5> kAxisListFields = {{
    {kRowAUTODRIVE, &F::comboAxisAutoDrv, 1, Find::ByValue},
    {kRowTYPE, &F::comboEtcHnOrQd, 4, Find::ByValue},
    {kRowFUNCTION, &F::comboPgFunc, 2, Find::ByIndex},
    {kRowSOFT_LIMIT, &F::comboSoftLimit, 2, Find::ByIndex},
    {kRowM0_DISABLE, &F::comboM0Disable, 4, Find::ByIndex},
}};

struct CommonListField {
    ParaRow row;
    int F::*field;
    int lastRow;
    Find find;
};

constexpr std::array<CommonListField, 6> kCommonListFields = {{
    {kRowHOME_OUT, &F::comboHomeOut, 3, Find::ByValue},
    {kRowALM_CODE, &F::comboEtcAlmCode, 1, Find::ByIndex},
    {kRowGRP_ENABLE, &F::comboEtcGrpEnable, 1, Find::ByIndex},
    {kRowSM_TIMEOUT, &F::comboSmInTimer, 1, Find::ByIndex},
    {kRowAUTO_HOME, &F::comboAutoHome, 1, Find::ByIndex},
    {kRowSTOP_PAUSE, &F::comboStopPause, 1, Find::ByIndex},
}};

struct CommonTextField {
    ParaRow row;
    std::string F::*field;
};

constexpr std::array<CommonTextField, 2> kCommonTextFields = {{
    {kRowSM_TIMER, &F::txtSmTimeoutTimer},
    {kRowAXIS, &F::txtOneAxis},
}};

constexpr std::array<ParaListRow, 2> kDriveRows = {{{641, 0}, {642, 1}}};
constexpr std::array<ParaListRow, 4> kTypeRows = {{{643, 0}, {644, 1}, {646, 2}, {647, 3}}};
constexpr std::array<ParaListRow, 3> kPgRows = {{{652, 0}, {653, 1}, {654, 2}}};
constexpr std::array<ParaListRow, 2> kEnableRows = {{{655, 0}, {656, 1}}};
constexpr std::array<ParaListRow, 4> kHomeOutRows = {{{657, 0}, {658, 1}, {659, 2}, {660, 3}}};
constexpr std::array<ParaListRow, 2> kAlarmCodeRows = {{{661, 0}, {662, 1}}};
constexpr std::array<ParaListRow, 2> kAutoHomeRows = {{{663, 0}, {664, 1}}};
constexpr std::array<ParaListRow, 2> kStopRows = {{{667, 0}, {668, 1}}};

/// The value hidden behind the selected row, 0 for a row that doesn't count.
double SelectedValue(ParaRow row, int selected, int lastRow) {
    const auto rows = ParaListRows(row);
    const bool valid =
        selected >= 0 && selected <= lastRow && static_cast<std::size_t>(selected) < rows.size();
    return valid ? rows[static_cast<std::size_t>(selected)].value : 0;
}

int RowOfValue(ParaRow row, double value, Find find) {
    const auto rows = ParaListRows(row);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double held = find == Find::ByValue ? rows[i].value : static_cast<double>(i);
        if (held == value) {
            return static_cast<int>(i);
        }
    }
    return kNoRow;
}

/// A number that was typed: whole, whatever the item could hold.
double FieldNumber(const std::string& text) {
    return ToInt32(NumberFromText(text));
}

void Take(ParameterSet& set, ParaRow row, std::size_t axis, double value) {
    SetParaValue(set, ItemOfRow(row), axis, value);
}

void TakeAxis(ParameterSet& set, std::size_t axis) {
    for (const AxisTextField& text : kAxisTextFields) {
        Take(set, text.row, axis, FieldNumber((ParaFields.*text.field)[axis]));
    }
    for (const AxisTextField& text : kSpecialTextFields) {
        Take(set, text.row, axis, FieldNumber((ParaFields.*text.field)[axis]));
    }
    for (const AxisListField& list : kAxisListFields) {
        Take(set, list.row, axis,
             SelectedValue(list.row, (ParaFields.*list.field)[axis], list.lastRow));
    }
    ActuatorParts& parts = set.parts[axis];
    parts.size = ParaFields.comboActSize[axis];
    parts.speed = Trim(ParaFields.comboActSpeed[axis]);
    parts.stroke = ToInt16(NumberFromText(ParaFields.comboActStroke[axis]));
    set.Actuator[axis] = BuildActuator(parts);
}

void TakeCommon(ParameterSet& set) {
    for (const CommonListField& list : kCommonListFields) {
        Take(set, list.row, 0, SelectedValue(list.row, ParaFields.*list.field, list.lastRow));
    }
    for (const CommonTextField& text : kCommonTextFields) {
        Take(set, text.row, 0, FieldNumber(ParaFields.*text.field));
    }
}

std::string ItemText(ParaRow row, std::size_t axis) {
    return PlainDecimal(ParaValue(ParaSet, ItemOfRow(row), axis));
}

void ShowAxis(std::size_t axis) {
    for (const AxisTextField& text : kAxisTextFields) {
        (ParaFields.*text.field)[axis] = ItemText(text.row, axis);
    }
    for (const AxisTextField& text : kSpecialTextFields) {
        (ParaFields.*text.field)[axis] = ItemText(text.row, axis);
    }
    for (const AxisListField& list : kAxisListFields) {
        (ParaFields.*list.field)[axis] =
            RowOfValue(list.row, ParaValue(ParaSet, ItemOfRow(list.row), axis), list.find);
    }
    const ActuatorParts& parts = ParaSet.parts[axis];
    ParaFields.comboActSize[axis] = parts.size;
    ParaFields.comboActSpeed[axis] = parts.speed;
    ParaFields.comboActStroke[axis] = std::to_string(parts.stroke);
    ParaFields.txtActuator[axis] = ParaSet.Actuator[axis];
}

void EmptyAxis(std::size_t axis) {
    for (const AxisTextField& text : kAxisTextFields) {
        (ParaFields.*text.field)[axis].clear();
    }
    for (const auto list : kActuatorLists) {
        (ParaFields.*list)[axis].clear();
    }
    if (ParaFields.chkTokuParaChange) {
        for (const AxisTextField& text : kSpecialTextFields) {
            (ParaFields.*text.field)[axis].clear();
        }
    }
}

template<typename Fields> bool AxisFilled(const Fields& fields, std::size_t axis) {
    return std::none_of(fields.begin(), fields.end(), [axis](const AxisTextField& text) {
        return (ParaFields.*text.field)[axis].empty();
    });
}

void TellWindow() {
    if (Screens().frmParameta2) {
        Screens().frmParameta2();
    }
}

} // namespace

std::span<const ParaListRow> ParaListRows(ParaRow row) {
    switch (row) {
    case kRowAUTODRIVE: return kDriveRows;
    case kRowTYPE: return kTypeRows;
    case kRowFUNCTION: return kPgRows;
    case kRowSOFT_LIMIT:
    case kRowM0_DISABLE:
    case kRowGRP_ENABLE:
    case kRowSM_TIMEOUT: return kEnableRows;
    case kRowHOME_OUT: return kHomeOutRows;
    case kRowALM_CODE: return kAlarmCodeRows;
    case kRowAUTO_HOME: return kAutoHomeRows;
    case kRowSTOP_PAUSE: return kStopRows;
    default: return {};
    }
}

bool ParaFieldsFilled() {
    for (std::size_t axis = 0; axis < AxisOff.size(); ++axis) {
        if (!IsSet(AxisOff[axis]) &&
            !(AxisFilled(kAxisTextFields, axis) && AxisFilled(kSpecialTextFields, axis))) {
            return false;
        }
    }
    return !ParaFields.txtSmTimeoutTimer.empty() && !ParaFields.txtOneAxis.empty();
}

std::int16_t TorikomiParametaValue() {
    try {
        ParameterSet set = ParaSet;
        for (std::size_t axis = 0; axis < AxisOff.size(); ++axis) {
            if (!IsSet(AxisOff[axis])) {
                TakeAxis(set, axis);
            }
        }
        TakeCommon(set);
        ParaSet = std::move(set);
    } catch (const Fault&) {
        return 1;
    }
    for (std::size_t axis = 0; axis < AxisOff.size(); ++axis) {
        if (!IsSet(AxisOff[axis])) {
            DevSettei[axis].DevSize = ParaSet.parts[axis].size;
            DevSettei[axis].DevSpeed = ParaSet.parts[axis].speed;
        }
    }
    return 0;
}

void ParametaHyoji() {
    for (std::size_t axis = 0; axis < AxisOff.size(); ++axis) {
        if (!IsSet(AxisOff[axis])) {
            ShowAxis(axis);
        }
    }
    for (const CommonListField& list : kCommonListFields) {
        ParaFields.*list.field =
            RowOfValue(list.row, ParaValue(ParaSet, ItemOfRow(list.row), 0), list.find);
    }
    for (const CommonTextField& text : kCommonTextFields) {
        ParaFields.*text.field = ItemText(text.row, 0);
    }
    TellWindow();
}

void YukoJikuHyojiSettei() {
    for (std::size_t axis = 0; axis < AxisOff.size(); ++axis) {
        if (IsSet(AxisOff[axis])) {
            EmptyAxis(axis);
        }
    }
    TellWindow();
}

} // namespace qdw8
