#pragma once

#include "app/Module1.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

/// The parameters of the controller: 28 items in five groups, some held per axis and some once.
///
/// `ParaSet` is the program's one image of them. File, controller and window all speak of an item
/// by its row number.
namespace qdw8 {

/// Row numbers of the items; files hold the items in this order.
enum ParaRow : std::size_t {
    kRowFileName = 0, ///< no item: the name of the file that the rows came from
    kRowOFFSET = 1,
    kRowPUSH,
    kRowVEL,
    kRowOFSVEL,
    kRowPUSHVEL,
    kRowSEQ,
    kRowSTROKE,
    kRowLEAD,
    kRowPULSE,
    kRowJOGVEL,
    kRowAUTODRIVE,
    kRowTYPE,
    kRowActuator,
    kRowFUNCTION,
    kRowALM,
    kRowHOME_OUT,
    kRowALM_CODE,
    kRowGRP_ENABLE,
    kRowSM_TIMEOUT,
    kRowSM_TIMER,
    kRowAXIS,
    kRowAUTO_HOME,
    kRowPG_TIMER,
    kRowLS_SERCH_TIMER,
    kRowSOFT_LIMIT,
    kRowM0_DISABLE,
    kRowSTOP_PAUSE,
    kRowACC_DCC,
};

/// The three parts of an `Actuator` text.
struct ActuatorParts {
    std::string size;        ///< size code, three characters: " 44", "J52"
    std::string speed;       ///< speed letter
    std::int16_t stroke = 0; ///< mm

    bool operator==(const ActuatorParts&) const = default;
};

using AxisWords = std::array<std::int16_t, kAxes>;
using AxisLongs = std::array<std::int32_t, kAxes>;
using AxisNumbers = std::array<double, kAxes>;

/// All items, under the names that files and reports use. Distances are pulses; the units of the
/// velocities and timers are the controller's own.
struct ParameterSet {
    AxisNumbers OFFSET{};
    AxisWords PUSH{};
    AxisWords VEL{};
    AxisWords OFSVEL{};
    AxisWords PUSHVEL{};
    AxisWords SEQ{};
    AxisNumbers STROKE{};
    AxisWords LEAD{};
    AxisLongs PULSE{};
    AxisWords JOGVEL{};
    AxisWords AUTODRIVE{};
    AxisWords TYPE{};
    std::array<std::string, kAxes>
        Actuator; ///< built from the parts, but for a file's, which stays as read
    std::array<ActuatorParts, kAxes> parts;
    AxisWords FUNCTION{};
    AxisNumbers ALM{};
    std::int16_t HOME_OUT = 0;
    std::int16_t ALM_CODE = 0;
    std::int16_t GRP_ENABLE = 0;
    std::int16_t SM_TIMEOUT = 0;
    std::int16_t SM_TIMER = 0;
    std::int16_t AXIS = 0; ///< axis mask: bit 0 for AXIS 1 up to bit 3, a set bit means in use
    std::int16_t AUTO_HOME = 0;
    AxisWords PG_TIMER{};
    AxisWords LS_SERCH_TIMER{};
    AxisWords SOFT_LIMIT{};
    AxisWords M0_DISABLE{};
    std::int16_t STOP_PAUSE = 0;
    std::int16_t ACC_DCC = 0; ///< carried, never edited and never checked

    bool operator==(const ParameterSet&) const = default;
};

extern ParameterSet ParaSet;
/// -1 once `ParaSet` holds parameters that came from somewhere.
extern Flag ParaLoadedFlag;

/// One-byte values in the controller's memory that belong to no item; the program only carries
/// them. A read fills cells 0 to 30.
inline constexpr std::size_t kReservedCells = 33;
using ReservedBytes = std::array<std::uint8_t, kReservedCells>;
extern ReservedBytes ParaReserved;

/// An item that is a number: all but `Actuator`.
struct ParaItem {
    ParaRow row;
    /// Held per axis, or once.
    std::variant<AxisNumbers ParameterSet::*, AxisWords ParameterSet::*, AxisLongs ParameterSet::*,
                 std::int16_t ParameterSet::*>
        field;
    std::int32_t low; ///< limits, both included
    std::int32_t high;
    bool forDevice; ///< decided by the device: what a device write loads anew and checks

    bool perAxis() const { return !std::holds_alternative<std::int16_t ParameterSet::*>(field); }
};

/// The numeric items in row order.
std::span<const ParaItem> ParaItems();
/// The numeric item of a row. Faults for a row without one.
const ParaItem& ItemOfRow(ParaRow row);

/// The value of an item; `axis` (0 to 3) is not looked at for an item held once.
double ParaValue(const ParameterSet& set, const ParaItem& item, std::size_t axis);
/// Stores a value, rounded to a whole number where the item is one (ties to the even number).
/// Faults when it doesn't fit; the set is then as it was.
void SetParaValue(ParameterSet& set, const ParaItem& item, std::size_t axis, double value);

/// Size, speed letter and the stroke in three digits; a longer stroke gives "X" in place of them.
std::string BuildActuator(const ActuatorParts& parts);
/// Takes a text apart. One that isn't of seven characters is read as one whose leading blank is
/// lost. Faults for a stroke that no number holds.
ActuatorParts ParseActuator(std::string_view text);

} // namespace qdw8
