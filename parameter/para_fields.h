#pragma once

#include "parameter/para_set.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

/// What stands in the fields of the parameter window, as plain data under the names of its
/// controls. The window shows it and hands the user's edits back.
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

/// A row of a list: the id of its text, and the value hidden behind it.
struct ParaListRow {
    std::int16_t textId;
    std::int16_t value;
};
/// The rows of the list that holds an item; empty for an item with a text field.
std::span<const ParaListRow> ParaListRows(ParaRow row);

/// True when no text field of an axis in use is empty, nor `txtSmTimeoutTimer` or `txtOneAxis`.
/// Lists have no part in it, nor has `txtActuator`, which nobody can fill in.
bool ParaFieldsFilled();

/// The fields into `ParaSet`: of each axis in use, then the common ones. A list without a valid row
/// gives 0. Size and speed go to `DevSettei` too. 0 good; 1 a number is too wide for its item, and
/// nothing has changed.
std::int16_t TorikomiParametaValue();

/// `ParaSet` into the fields, of each axis in use and the common ones, and tells the window. A
/// value that no row of its list holds selects nothing.
void ParametaHyoji();

/// Empties the fields of the axes out of use and tells the window, which shows what may be edited.
/// The special items are left alone while `chkTokuParaChange` is off.
void YukoJikuHyojiSettei();

} // namespace qdw8
