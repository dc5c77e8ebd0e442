#pragma once

#include "tables/small_table.h"

#include <array>
#include <cstdint>

/// The sequence macros: 20 of them, of 16 steps each.
namespace qdw8 {

inline constexpr int kMacros = 20;
inline constexpr int kSmSteps = 16;
/// Of a step in controller memory that was never written.
inline constexpr std::int16_t kNeverWritten = 15;

struct SmStep {
    std::int16_t command = 0; ///< 0 to 6, or 15
    std::int16_t data = 0;    ///< 0 for END, 1 to 4 for inputs and outputs, 1 to 9 for times
};

/// A command by its number: its text in the list, the same in both languages, and what its data
/// may be.
struct SmCommand {
    const char* text;
    std::int16_t lowest;
    std::int16_t highest;
    std::int16_t limits; ///< text id of the limits, for the tool tip
    std::int16_t reason; ///< text id: what is against other data
};
inline constexpr std::array<SmCommand, 7> kSmCommands{{
    {"0. END", 0, 0, 3155, 0},
    {"1. IN-ON", 1, 4, 3153, 3156},
    {"2. IN-OFF", 1, 4, 3153, 3156},
    {"3. OUT-ON", 1, 4, 3153, 3156},
    {"4. OUT-OFF", 1, 4, 3153, 3156},
    {"5. TIMER", 1, 9, 3154, 3157},
    {"6. TIMER10", 1, 9, 3154, 3157},
}};
/// The row of a step's command; the one of END for a command that there isn't.
const SmCommand& CommandOf(const SmStep& step);
/// The command is one of those above.
bool IsKnownCommand(std::int16_t command);
/// The command is one of those above, and the data within its limits; END takes any data.
bool StepGood(const SmStep& step);

/// The fields of a step; number 2k + f of a macro is field f of step k, for `ReasonOf`.
enum SmField { kSmCommandField, kSmDataField, kSmFields };

/// By SM No. 1 to 20 and step 0 to 15; number 0 carries nothing.
using SmMacro = std::array<SmStep, kSmSteps>;
using SmMacros = std::array<SmMacro, kMacros + 1>;
extern SmMacros& SmTable;   ///< what the window shows and edits
extern SmMacros& SmCompare; ///< what a file or the controller delivered
extern TableState& SmState;

Numbers TakeMacros(Held copy);
void PutMacros(Held copy, const Numbers& numbers);
/// A step that ends the macro has no data.
void SettleMacros(Numbers& numbers);

/// Makes of steps never written, and of END with any data, END with none. Then 0 good; 1 bad: a
/// macro has an unknown command, or data that its command doesn't take; `SmState.badList` names
/// them, "<3>,<17>,".
std::int16_t SmData_Check();

/// Part of `ResetTables`: all steps END, nothing unsaved.
void ResetMacros();

} // namespace qdw8
