#include "parameter/para_verify.h"

#include "app/boxes.h"
#include "app/string_table.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <span>

namespace qdw8 {

std::array<std::string, kReportGroups> VerifyReport;

namespace {

struct Reported {
    ParaRow row;
    const char* name;
};

constexpr std::array<Reported, 6> kHome = {{{kRowOFFSET, "OFFSET("},
                                            {kRowPUSH, "PUSH("},
                                            {kRowVEL, "VEL("},
                                            {kRowOFSVEL, "OFSVEL("},
                                            {kRowPUSHVEL, "PUSHVEL("},
                                            {kRowSEQ, "SEQ("}}};
constexpr std::array<Reported, 7> kAxis = {{{kRowSTROKE, "STROKE("},
                                            {kRowLEAD, "LEAD("},
                                            {kRowPULSE, "PULSE("},
                                            {kRowJOGVEL, "JOGVEL("},
                                            {kRowAUTODRIVE, "AUTODRIVE("},
                                            {kRowTYPE, "TYPE("},
                                            {kRowActuator, "Actuator("}}};
constexpr std::array<Reported, 2> kPg = {{{kRowFUNCTION, "FUNCTION("}, {kRowALM, "ALM("}}};
constexpr std::array<Reported, 5> kEtc = {{{kRowHOME_OUT, "HOME OUT,"},
                                           {kRowALM_CODE, "ALM CODE,"},
                                           {kRowGRP_ENABLE, "GRP ENABLE,"},
                                           {kRowSM_TIMEOUT, "SM TIMEOUT,"},
                                           {kRowSM_TIMER, "SM TIMER,"}}};
constexpr std::array<Reported, 3> kSpecialCommon = {
    {{kRowAXIS, "AXIS,"}, {kRowAUTO_HOME, "AUTO HOME,"}, {kRowSTOP_PAUSE, "STOP/PAUSE,"}}};
constexpr std::array<Reported, 4> kSpecial = {{{kRowPG_TIMER, "PG TIMER("},
                                               {kRowLS_SERCH_TIMER, "LS SERCH TIMER("},
                                               {kRowSOFT_LIMIT, "SOFT LIMIT("},
                                               {kRowM0_DISABLE, "M0 DISABLE("}}};

/// A group of the report: its title, and the items that stand once before those of the axes. Slot 1
/// belongs to items that this controller doesn't have.
struct Group {
    std::int16_t titleId;
    std::span<const Reported> common;
    std::span<const Reported> perAxis;
};
constexpr std::array<Group, kReportGroups> kGroups = {{{673, {}, kHome},
                                                       {674, {}, {}},
                                                       {675, {}, kAxis},
                                                       {676, {}, kPg},
                                                       {677, kEtc, {}},
                                                       {678, kSpecialCommon, kSpecial}}};

/// By what the text means: an older file may have lost a leading blank.
bool ActuatorDiffers(const std::string& held, const std::string& other) {
    try {
        return BuildActuator(ParseActuator(held)) != BuildActuator(ParseActuator(other));
    } catch (const std::exception&) {
        return held != other;
    }
}

bool Differs(ParaRow row, std::size_t axis) {
    const ParaCell& cell = ParaRowTable.at(axis, row);
    if (row == kRowActuator) {
        return ActuatorDiffers(ParaSet.Actuator[axis], CellText(cell));
    }
    try {
        return CellNumber(cell) != ParaValue(ParaSet, ItemOfRow(row), axis);
    } catch (const std::exception&) {
        return true;
    }
}

std::string Difference(const Group& group) {
    std::string text;
    for (const Reported& item : group.common) {
        text += Differs(item.row, 0) ? item.name : "";
    }
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        for (const Reported& item : group.perAxis) {
            if (!IsSet(AxisOff[axis]) && Differs(item.row, axis)) {
                text += item.name + std::to_string(axis + 1) + "),";
            }
        }
    }
    return text;
}

} // namespace

bool CompareParaSet() {
    std::transform(kGroups.begin(), kGroups.end(), VerifyReport.begin(), Difference);
    return std::any_of(VerifyReport.begin(), VerifyReport.end(),
                       [](const std::string& text) { return !text.empty(); });
}

void ShowParaReport() {
    std::string text;
    for (std::size_t group = 0; group < kReportGroups; ++group) {
        if (!VerifyReport[group].empty()) {
            text += "\r\n<" + ResText(kGroups[group].titleId) + "> :" + VerifyReport[group];
        }
    }
    ShowBox(text.empty() ? ResText(826) : ResText(823) + text);
}

} // namespace qdw8
