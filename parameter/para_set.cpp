#include "parameter/para_set.h"

#include "app/number_forms.h"
#include "platform/fault.h"

#include <algorithm>
#include <type_traits>

namespace qdw8 {

ParameterSet ParaSet;
Flag ParaLoadedFlag;
ReservedBytes ParaReserved{};

namespace {

using P = ParameterSet;

const std::array<ParaItem, 27> kItems = {{
    {kRowOFFSET, &P::OFFSET, 1, 65535, true},
    {kRowPUSH, &P::PUSH, 1, 255, true},
    {kRowVEL, &P::VEL, 1, 60, true},
    {kRowOFSVEL, &P::OFSVEL, 1, 60, true},
    {kRowPUSHVEL, &P::PUSHVEL, 1, 60, true},
    {kRowSEQ, &P::SEQ, 1, 9, false},
    {kRowSTROKE, &P::STROKE, 0, 262143, true},
    {kRowLEAD, &P::LEAD, 1, 255, true},
    {kRowPULSE, &P::PULSE, 1, 65535, true},
    {kRowJOGVEL, &P::JOGVEL, 1, 30, true},
    {kRowAUTODRIVE, &P::AUTODRIVE, 0, 1, false},
    {kRowTYPE, &P::TYPE, 0, 5, true},
    {kRowFUNCTION, &P::FUNCTION, 0, 2, true},
    {kRowALM, &P::ALM, 5, 65535, false},
    {kRowHOME_OUT, &P::HOME_OUT, 0, 3, false},
    {kRowALM_CODE, &P::ALM_CODE, 0, 1, false},
    {kRowGRP_ENABLE, &P::GRP_ENABLE, 0, 1, false},
    {kRowSM_TIMEOUT, &P::SM_TIMEOUT, 0, 1, false},
    {kRowSM_TIMER, &P::SM_TIMER, 1, 255, false},
    {kRowAXIS, &P::AXIS, 0, 15, false},
    {kRowAUTO_HOME, &P::AUTO_HOME, 0, 1, false},
    {kRowPG_TIMER, &P::PG_TIMER, 0, 255, false},
    {kRowLS_SERCH_TIMER, &P::LS_SERCH_TIMER, 0, 255, false},
    {kRowSOFT_LIMIT, &P::SOFT_LIMIT, 0, 1, false},
    {kRowM0_DISABLE, &P::M0_DISABLE, 0, 1, false},
    {kRowSTOP_PAUSE, &P::STOP_PAUSE, 0, 1, false},
    // Whatever the controller says of the acceleration is good.
    {kRowACC_DCC, &P::ACC_DCC, -32768, 32767, false},
}};

/// The cell that a member of `ParaItem::field` points at, by axis or as it stands.
template<typename Set, typename Member> auto& CellOf(Set& set, Member member, std::size_t axis) {
    if constexpr (std::is_same_v<Member, std::int16_t ParameterSet::*>) {
        return set.*member;
    } else {
        return (set.*member).at(axis);
    }
}

constexpr std::size_t kActuatorLength = 7;
constexpr std::size_t kStrokeDigits = 3;

} // namespace

std::span<const ParaItem> ParaItems() {
    return kItems;
}

const ParaItem& ItemOfRow(ParaRow row) {
    const auto item = std::find_if(kItems.begin(), kItems.end(), [row](const ParaItem& candidate) {
        return candidate.row == row;
    });
    if (item == kItems.end()) {
        throw Fault("a parameter row holds no number");
    }
    return *item;
}

double ParaValue(const ParameterSet& set, const ParaItem& item, std::size_t axis) {
    return std::visit([&](auto member) { return static_cast<double>(CellOf(set, member, axis)); },
                      item.field);
}

void SetParaValue(ParameterSet& set, const ParaItem& item, std::size_t axis, double value) {
    std::visit(
        [&](auto member) {
            auto& cell = CellOf(set, member, axis);
            using Cell = std::remove_reference_t<decltype(cell)>;
            if constexpr (std::is_same_v<Cell, double>) {
                cell = value;
            } else if constexpr (std::is_same_v<Cell, std::int16_t>) {
                cell = ToInt16(value);
            } else {
                cell = ToInt32(value);
            }
        },
        item.field);
}

std::string BuildActuator(const ActuatorParts& parts) {
    std::string stroke = std::to_string(parts.stroke);
    if (stroke.size() > kStrokeDigits) {
        stroke = "X";
    } else {
        stroke.insert(0, kStrokeDigits - stroke.size(), '0');
    }
    return parts.size + parts.speed + stroke;
}

ActuatorParts ParseActuator(std::string_view text) {
    ActuatorParts parts;
    if (text.size() == kActuatorLength) {
        parts.size = Mid(text, 1, 3);
        parts.speed = Trim(Mid(text, 4, 1));
        parts.stroke = ToInt16(NumberFromText(Mid(text, 5, 3)));
    } else {
        parts.size = std::string(" ").append(Mid(text, 1, 2));
        parts.speed = Trim(Mid(text, 3, 1));
        parts.stroke = ToInt16(NumberFromText(Mid(text, 4, 3)));
    }
    return parts;
}

} // namespace qdw8
