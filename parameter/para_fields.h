#pragma once

#include "app/Module1.h"
#include "parameter/para_controls.h"

#include <cstdint>
#include <string>

/// Between the fields of the parameter window and `ParaSet`.
namespace qdw8 {

/// -1: the fields hold what is neither in a file nor in the controller.
extern Flag ParaEditedFlag;

/// The file that the fields were filled from or saved to last, without its folder, or words for the
/// inside of the controller. Empty while they are of neither.
extern std::string& ParaName;

/// What stands in `ParaSet` is in a file or in the controller: no edits, and what is given up later
/// leads back to here.
void CountParaAsKept();
/// The edits are given up: `ParaSet` forgets what a check took of them, and factory parameters that
/// were only shown. What was loaded behind them stays.
void GiveUpParaEdits();
/// True when `ParaSet` was loaded, by something outside the window, since the fields showed it or
/// gave it last.
bool ParaSetHasMovedOn();
/// Fields can be used of an axis that is out of use by now, or the other way round.
bool AxesHaveMovedOn();

/// True when no text field of an axis in use is empty, nor `txtSmTimeoutTimer` or `txtOneAxis`.
/// Lists have no part in it, nor has `txtActuator`, which nobody can fill in.
bool ParaFieldsFilled();

/// The fields into `ParaSet`: of each axis in use, then the common ones. A list without a valid row
/// gives 0. Size and speed go to `DevSettei` too. 0 good; 1 a number is too wide for its item, and
/// nothing has changed.
std::int16_t TorikomiParametaValue();

/// `ParaSet` into the fields, of each axis in use and the common ones, and tells the window; first
/// the fields follow the axes in use (`YukoJikuHyojiSettei`). A value that no row of its list holds
/// selects nothing. No field is marked any more.
void ParametaHyoji();

/// Before any parameters were loaded: the fields stay as they are, and follow the axes in use.
void ShowNoParameters();

/// The axes in use as both sides have agreed on them, in `txtOneAxis`; the fields follow.
void ShowAgreedMask();

/// Enables the fields of the axes in use; those of the others are emptied, but for the lists that
/// are selected by number, and grey. The special ones are left alone while `chkTokuParaChange` is
/// off. Tells the window.
void YukoJikuHyojiSettei();

/// The speeds and strokes that the lists of an axis offer follow the texts that stand in them.
void FollowActuator(std::size_t axis);

/// Tells the window to look again.
void TellParameta2();

/// Part of `ResetParameters`.
void ResetParaFields();

} // namespace qdw8
