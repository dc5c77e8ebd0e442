#pragma once

#include "tables/sm_table.h"

#include <array>
#include <cstdint>
#include <string>

/// The window `frmSqMcr` as data: one macro, step by step, and what becomes of what is chosen and
/// typed. Steps count from 0 here, from 1 on the screen.
namespace qdw8 {

/// What stands in the row of a step.
struct SmStepShown {
    std::int16_t comboMerei = 0; ///< the command chosen in the list, 0 to 6; -1 none of them
    std::string txtSmData;
};
struct SmForm {
    std::int16_t lblSqMacroNo = 1; ///< 1 to 20; `UpDownSmNo` steps it
    std::array<SmStepShown, kSmSteps> steps;
};
const SmForm& TheSmForm();

/// The window opens: all macros are empty, nothing is unsaved, the first one shows.
void LoadSm();

/// Shows a macro, 1 to 20; a number beyond shows the nearest.
void ShowMacro(int macro);
/// Shows the macro once more, as `SmTable` has it now.
void ShowMacro();

/// The user chose in a step's list: the command goes into `SmTable`. -1, nothing is chosen: a beep.
void ChooseSmCommand(int step, int choice);
/// True: the key goes into the step's data field. Backspace always does.
bool SmDataKeyGoesIn(int step, char key);
/// The text of a step's data field has changed: its number goes into `SmTable`, 0 for a text that
/// is none.
void EditSmData(int step, const std::string& text);
/// The focus comes into a step's data field: data that its command doesn't take become 1, and the
/// macro is shown once more.
void EnterSmData(int step);

/// What the step's data field takes, as a text id for its tool tip.
std::int16_t SmDataLimits(int step);

/// Part of `ResetTables`.
void ResetSmForm();

} // namespace qdw8
