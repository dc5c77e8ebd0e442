#pragma once

#include "app/Module1.h"
#include "parameter/para_set.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What stands in the parameter window `frmParameta2`, as plain data under the names of its
/// controls, and the one table of those controls.
namespace qdw8 {

using AxisTexts = std::array<std::string, kAxes>;
/// Selected row of a list per axis; -1 for none.
using AxisLists = std::array<int, kAxes>;
inline constexpr int kNoRow = -1;
inline constexpr AxisLists kNoRows{kNoRow, kNoRow, kNoRow, kNoRow};

struct ParaFieldTexts {
    AxisTexts txtHomeOffset;
    AxisTexts txtHomePush;
    AxisTexts txtHomeVel;
    AxisTexts txtHomeOfsVel;
    AxisTexts txtHomePushVel;
    AxisTexts txtHomeOrder;

    AxisTexts txtAxisStroke;
    AxisTexts txtAxisLead;
    AxisTexts txtAxisPulse;
    AxisTexts txtJogHighVel;
    AxisLists comboAxisAutoDrv = kNoRows;
    AxisLists comboEtcHnOrQd = kNoRows; ///< item `TYPE`
    AxisTexts comboActSize;             ///< the texts of these three lists
    AxisTexts comboActSpeed;
    AxisTexts comboActStroke;
    AxisTexts txtActuator; ///< shown, never edited

    AxisLists comboPgFunc = kNoRows;
    AxisTexts txtPgAlarm;

    int comboHomeOut = kNoRow;
    int comboEtcAlmCode = kNoRow;
    int comboEtcGrpEnable = kNoRow;
    int comboSmInTimer = kNoRow; ///< item `SM TIMEOUT`
    std::string txtSmTimeoutTimer;

    std::string txtOneAxis; ///< item `AXIS`
    int comboAutoHome = kNoRow;
    AxisTexts txtPgCheckTimer;
    AxisTexts txtLsSerchTimer;
    AxisLists comboSoftLimit = kNoRows;
    AxisLists comboM0Disable = kNoRows;
    int comboStopPause = kNoRow;
    bool chkTokuParaChange = false; ///< the special items may be edited

    bool operator==(const ParaFieldTexts&) const = default;
};

extern ParaFieldTexts ParaFields;

/// The rows of the three actuator lists of an axis, out of the device list.
struct ActuatorRows {
    std::vector<std::string> sizes;   ///< `comboActSize`, three characters each
    std::vector<std::string> speeds;  ///< `comboActSpeed`, those of the size
    std::vector<std::string> strokes; ///< `comboActStroke`, mm, those of size and speed
};
extern std::array<ActuatorRows, kAxes> ParaActuatorRows;

/// Each control that shows an item, in the order in which the eye finds them: page by page, item by
/// item; a control of an axis stands for its four elements.
enum class ParaControl : std::size_t {
    txtHomeOffset,
    txtHomePush,
    txtHomeVel,
    txtHomeOfsVel,
    txtHomePushVel,
    txtHomeOrder,
    txtAxisStroke,
    txtAxisLead,
    txtAxisPulse,
    txtJogHighVel,
    comboAxisAutoDrv,
    comboEtcHnOrQd,
    comboActSize,
    comboActSpeed,
    comboActStroke,
    txtActuator,
    comboPgFunc,
    txtPgAlarm,
    comboHomeOut,
    comboEtcAlmCode,
    comboEtcGrpEnable,
    comboSmInTimer,
    txtSmTimeoutTimer,
    txtOneAxis,
    comboAutoHome,
    txtPgCheckTimer,
    txtLsSerchTimer,
    comboSoftLimit,
    comboM0Disable,
    comboStopPause,
    comboAccDcc,
    count
};
inline constexpr std::size_t kParaControls = static_cast<std::size_t>(ParaControl::count);

enum class ParaKind {
    Text,         ///< a number
    List,         ///< rows of `ParaListRows`, selected by number
    ActuatorList, ///< rows of `ParaActuatorRows`, selected by text
    Shown         ///< not edited
};

/// How a value is found in a list: by what is hidden behind the rows, or by the row's number.
enum class ParaFind { ByValue, ByIndex };

/// Limits of a whole number, both included.
struct ParaRange {
    std::int32_t low;
    std::int32_t high;
};

struct ParaControlRow {
    ParaControl control;
    const char* name; ///< of the control; element n of an axis control is "name(n)"
    /// Its place in `ParaFields`; none for `comboAccDcc`, which stays empty.
    std::variant<std::monostate, AxisTexts ParaFieldTexts::*, AxisLists ParaFieldTexts::*,
                 std::string ParaFieldTexts::*, int ParaFieldTexts::*>
        field;
    ParaRow row; ///< the item; `Actuator` for the three lists and `txtActuator`
    int page;    ///< tab 0 to 4
    ParaKind kind;
    std::optional<ParaRange> leaving; ///< a number beyond it doesn't stay in the field
    bool special = false;             ///< behind the lock `chkTokuParaChange`
    int lastRow = kNoRow; ///< rows of a list beyond it count as none; some bounds are wider than it
    ParaFind find = ParaFind::ByIndex;

    bool perAxis() const; ///< a control of each axis, or one
    bool isText() const { return kind == ParaKind::Text; }
};

/// In the order of `ParaControl`.
std::span<const ParaControlRow> ParaControls();
const ParaControlRow& RowOf(ParaControl control);
/// Nothing for a name that no control has.
std::optional<ParaControl> ParaControlNamed(std::string_view name);

/// A row of a list: the id of its text, and the value hidden behind it.
struct ParaListRow {
    std::int16_t textId;
    std::int16_t value;
};
/// The rows of the list that holds an item; empty for an item with a text field.
std::span<const ParaListRow> ParaListRows(ParaRow row);

/// The text of a text field or an actuator list; `axis` (0 to 3) is not looked at for a control
/// that stands once. Faults for a list that is selected by number.
std::string& ParaText(ParaControl control, std::size_t axis);
/// The selected row of a list that is selected by number, `kNoRow` for none. Faults for any other.
int& ParaSelected(ParaControl control, std::size_t axis);

/// A field: control and axis, the axis 0 for a control that stands once.
struct ParaPlace {
    ParaControl control = ParaControl::txtHomeOffset;
    std::size_t axis = 0;

    bool operator==(const ParaPlace&) const = default;
};

/// Which fields may be edited, as the rules last left them.
struct ParaFieldStates {
    std::array<bool, kAxes> axis{};    ///< the controls of the axis
    std::array<bool, kAxes> special{}; ///< its special ones
    bool specialCommon = false;        ///< the special ones that stand once
};
extern ParaFieldStates ParaStates;

/// True for a field that is disabled with the light grey background (E0E0E0 hexadecimal).
bool ParaFieldGrey(ParaControl control, std::size_t axis);
/// True for a field that the user may edit now: it isn't grey, and no command has taken everything
/// away. `txtActuator` never may.
bool ParaFieldEnabled(ParaControl control, std::size_t axis);

/// The most characters that a text field takes: the digits of its highest good value.
std::size_t ParaFieldLength(ParaControl control);

} // namespace qdw8
