#include "parameter/para_controls.h"

#include "app/command_states.h"
#include "platform/fault.h"

#include <algorithm>

namespace qdw8 {

ParaFieldTexts ParaFields;
ParaFieldStates ParaStates;
std::array<ActuatorRows, kAxes> ParaActuatorRows;

namespace {

using enum ParaKind;
using enum ParaFind;

constexpr int kHomePage = 0;
constexpr int kAxisPage = 1;
constexpr int kPgPage = 2;
constexpr int kEtcPage = 3;
constexpr int kSpecialPage = 4;

#define CONTROL(name) ParaControl::name, #name, &ParaFieldTexts::name
// The ranges on leaving are not those of the check: they are wider for the homing order, the lead
// and the pulses.
const std::array<ParaControlRow, kParaControls> kControls = {{
    {CONTROL(txtHomeOffset), kRowOFFSET, kHomePage, Text, {{1, 65535}}},
    {CONTROL(txtHomePush), kRowPUSH, kHomePage, Text, {{1, 255}}},
    {CONTROL(txtHomeVel), kRowVEL, kHomePage, Text, {{1, 60}}},
    {CONTROL(txtHomeOfsVel), kRowOFSVEL, kHomePage, Text, {{1, 60}}},
    {CONTROL(txtHomePushVel), kRowPUSHVEL, kHomePage, Text, {{1, 60}}},
    {CONTROL(txtHomeOrder), kRowSEQ, kHomePage, Text, {{0, 255}}},

    {CONTROL(txtAxisStroke), kRowSTROKE, kAxisPage, Text, {{0, 262143}}},
    {CONTROL(txtAxisLead), kRowLEAD, kAxisPage, Text, {{0, 255}}},
    {CONTROL(txtAxisPulse), kRowPULSE, kAxisPage, Text, {{0, 65535}}},
    {CONTROL(txtJogHighVel), kRowJOGVEL, kAxisPage, Text, {{1, 30}}},
    {CONTROL(comboAxisAutoDrv), kRowAUTODRIVE, kAxisPage, List, {}, false, 1, ByValue},
    {CONTROL(comboEtcHnOrQd), kRowTYPE, kAxisPage, List, {}, false, 4, ByValue},
    {CONTROL(comboActSize), kRowActuator, kAxisPage, ActuatorList, {}},
    {CONTROL(comboActSpeed), kRowActuator, kAxisPage, ActuatorList, {}},
    {CONTROL(comboActStroke), kRowActuator, kAxisPage, ActuatorList, {}},
    {CONTROL(txtActuator), kRowActuator, kAxisPage, Shown, {}},

    {CONTROL(comboPgFunc), kRowFUNCTION, kPgPage, List, {}, false, 2, ByIndex},
    {CONTROL(txtPgAlarm), kRowALM, kPgPage, Text, {{5, 65535}}},

    {CONTROL(comboHomeOut), kRowHOME_OUT, kEtcPage, List, {}, false, 3, ByValue},
    {CONTROL(comboEtcAlmCode), kRowALM_CODE, kEtcPage, List, {}, false, 1, ByIndex},
    {CONTROL(comboEtcGrpEnable), kRowGRP_ENABLE, kEtcPage, List, {}, false, 1, ByIndex},
    {CONTROL(comboSmInTimer), kRowSM_TIMEOUT, kEtcPage, List, {}, false, 1, ByIndex},
    {CONTROL(txtSmTimeoutTimer), kRowSM_TIMER, kEtcPage, Text, {{1, 255}}},

    {CONTROL(txtOneAxis), kRowAXIS, kSpecialPage, Text, {}, true},
    {CONTROL(comboAutoHome), kRowAUTO_HOME, kSpecialPage, List, {}, true, 1, ByIndex},
    {CONTROL(txtPgCheckTimer), kRowPG_TIMER, kSpecialPage, Text, {{0, 255}}, true},
    {CONTROL(txtLsSerchTimer), kRowLS_SERCH_TIMER, kSpecialPage, Text, {{0, 255}}, true},
    {CONTROL(comboSoftLimit), kRowSOFT_LIMIT, kSpecialPage, List, {}, true, 2, ByIndex},
    {CONTROL(comboM0Disable), kRowM0_DISABLE, kSpecialPage, List, {}, true, 4, ByIndex},
    {CONTROL(comboStopPause), kRowSTOP_PAUSE, kSpecialPage, List, {}, true, 1, ByIndex},
    {ParaControl::comboAccDcc, "comboAccDcc", {}, kRowACC_DCC, kSpecialPage, Shown, {}, true},
}};
#undef CONTROL

constexpr std::array<ParaListRow, 2> kDriveRows = {{{641, 0}, {642, 1}}};
constexpr std::array<ParaListRow, 4> kTypeRows = {{{643, 0}, {644, 1}, {646, 2}, {647, 3}}};
constexpr std::array<ParaListRow, 3> kPgRows = {{{652, 0}, {653, 1}, {654, 2}}};
constexpr std::array<ParaListRow, 2> kEnableRows = {{{655, 0}, {656, 1}}};
constexpr std::array<ParaListRow, 4> kHomeOutRows = {{{657, 0}, {658, 1}, {659, 2}, {660, 3}}};
constexpr std::array<ParaListRow, 2> kAlarmCodeRows = {{{661, 0}, {662, 1}}};
constexpr std::array<ParaListRow, 2> kAutoHomeRows = {{{663, 0}, {664, 1}}};
constexpr std::array<ParaListRow, 2> kStopRows = {{{667, 0}, {668, 1}}};

} // namespace

bool ParaControlRow::perAxis() const {
    return std::holds_alternative<AxisTexts ParaFieldTexts::*>(field) ||
           std::holds_alternative<AxisLists ParaFieldTexts::*>(field);
}

std::span<const ParaControlRow> ParaControls() {
    return kControls;
}

const ParaControlRow& RowOf(ParaControl control) {
    return kControls.at(static_cast<std::size_t>(control));
}

std::optional<ParaControl> ParaControlNamed(std::string_view name) {
    const auto found = std::find_if(kControls.begin(), kControls.end(),
                                    [name](const ParaControlRow& row) { return row.name == name; });
    return found == kControls.end() ? std::nullopt : std::optional(found->control);
}

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

std::string& ParaText(ParaControl control, std::size_t axis) {
    const auto& field = RowOf(control).field;
    if (const auto* texts = std::get_if<AxisTexts ParaFieldTexts::*>(&field)) {
        return (ParaFields.**texts).at(axis);
    }
    if (const auto* text = std::get_if<std::string ParaFieldTexts::*>(&field)) {
        return ParaFields.**text;
    }
    throw Fault("a control without a text");
}

int& ParaSelected(ParaControl control, std::size_t axis) {
    const auto& field = RowOf(control).field;
    if (const auto* rows = std::get_if<AxisLists ParaFieldTexts::*>(&field)) {
        return (ParaFields.**rows).at(axis);
    }
    if (const auto* row = std::get_if<int ParaFieldTexts::*>(&field)) {
        return ParaFields.**row;
    }
    throw Fault("a control without rows by number");
}

bool ParaFieldGrey(ParaControl control, std::size_t axis) {
    const ParaControlRow& row = RowOf(control);
    if (row.perAxis()) {
        return !(row.special ? ParaStates.special : ParaStates.axis).at(axis);
    }
    return row.special && !ParaStates.specialCommon;
}

bool ParaFieldEnabled(ParaControl control, std::size_t axis) {
    return control != ParaControl::txtActuator && !ParaFieldGrey(control, axis) && !CommandsTaken();
}

std::size_t ParaFieldLength(ParaControl control) {
    return std::to_string(ItemOfRow(RowOf(control).row).high).size();
}

} // namespace qdw8
