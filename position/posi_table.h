#pragma once

#include "app/Module1.h"
#include "device/axis_device.h"

#include <array>
#include <cstdint>
#include <string>
#include <variant>

/// The position table: up to 999 numbered moves of the controller, and the range variables that say
/// which rows are being worked on.
///
/// A row is addressed by its position number, 1 to 999; storage index 0 is never a position. The
/// grid of the main window is the working copy: the table takes over what the grid shows only when
/// `PosiDataCheck3` finds the range clean.
namespace qdw8 {

inline constexpr int kPosiRows = 1000;
inline constexpr int kLastPosition = 999;
/// Table columns 0 to 15 are four blocks of "VEL", "ACC", "WAY", "Posi", one for each axis.
inline constexpr int kPosiColumns = 21;
inline constexpr int kAxisColumns = 4;
inline constexpr int kVel = 0;
inline constexpr int kAcc = 1;
inline constexpr int kWay = 2;
inline constexpr int kPosi = 3;
inline constexpr int kItpl = 16;
inline constexpr int kOut = 17;
inline constexpr int kSm = 18;
inline constexpr int kComment = 19;

/// What an axis out of use shows, sends and saves.
inline constexpr double kOffVel = 30;
inline constexpr double kOffAcc = 3;
inline constexpr double kOffWay = 0;
inline constexpr double kOffPosi = 0;

/// One row: numbers of table columns 0 to 18, and the comment. Positions are pulses. The cells of a
/// row that was never written count as empty.
struct PosiRow {
    std::array<double, kComment> number{};
    std::string comment;
    bool written = false;
};

/// Both forms of the positions of a row, per axis.
struct PosiUnits {
    std::array<double, kAxes> pulse{};
    std::array<double, kAxes> mm{};
};

/// A cell that came from a file or from the controller, exactly as it was read.
using StageCell = std::variant<std::string, double>;
double NumberOf(const StageCell& cell);
std::string TextOf(const StageCell& cell);

extern std::array<PosiRow, kPosiRows> PosiTable;
extern std::array<PosiUnits, kPosiRows> PosiUnitTable;
/// Staging table: columns 1 to 20 are table columns 0 to 19; column 0 is unused.
using StageRow = std::array<StageCell, kPosiColumns>;
extern std::array<StageRow, kPosiRows> PosiStage;
/// Raw frame text per row, at index position number - 1.
extern std::array<std::string, kPosiRows> PosiFrameText;

// ---- range variables, position numbers ----

extern std::int16_t GridFirst; ///< rows shown in the grid; 0 and 0: no data
extern std::int16_t GridLast;
extern std::int16_t GridRowCount;
extern std::int16_t PosiFirst; ///< working range of the present operation
extern std::int16_t PosiLast;
extern std::int16_t SavedGridFirst; ///< the grid's rows before a read from the controller
extern std::int16_t SavedGridLast;

extern Flag PosiDirtyFlag;       ///< the table holds unsaved changes
extern Flag PosiHasDataFlag;     ///< set by `PosiTableHasData`
extern std::string PosiFileName; ///< current file name without folder and extension

/// Default of a "VEL", "ACC", "WAY", "Posi" cell of an axis (0 to 3).
double DefaultNumber(int axis, int item);

/// Fills every row with the defaults; clears both unit forms and the frame texts.
void ClearPosiTable();
/// Copies `PosiStage` to the table for the working range; the positions go to the pulse forms and
/// reach `PosiTable` with the next commit.
void PosiStageToTable();
/// Fill one form of the positions from the other for the working range; an axis out of use gets 0.
void ConvertTableToMm();
void ConvertTableToPulse();
/// True if any cell of rows 0 to 998, table columns 0 to 10, is not the empty text; also left in
/// `PosiHasDataFlag`.
bool PosiTableHasData();

/// Sets `PosiFileName` and shows it in `lblFileName`.
void ShowPosiFileName(const std::string& name);

/// Puts the variables of the position room into the state of a fresh start.
void ResetPositions();

} // namespace qdw8
