#pragma once

#include "app/Module1.h"
#include "app/file_questions.h"
#include "position/posi_columns.h"

#include <array>
#include <cstdint>
#include <optional>
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
/// Position files `.qdd`.
inline constexpr FileKind kPosiFile{351, "qdd"};

/// One row: numbers of table columns 0 to 18, and the comment. Positions are pulses. The cells of a
/// row that was never written count as empty.
struct PosiRow {
    std::array<double, kComment> number{};
    std::string comment;
    bool written = false;

    bool operator==(const PosiRow&) const = default;
};

/// Both forms of the positions of a row, per axis.
struct PosiUnits {
    std::array<double, kAxes> pulse{};
    std::array<double, kAxes> mm{};

    bool operator==(const PosiUnits&) const = default;
};

/// A cell that came from a file or from the controller, exactly as it was read.
using StageCell = std::variant<std::string, double>;
/// The number of a cell; nothing when its text is not wholly one number.
std::optional<double> NumberOf(const StageCell& cell);
std::string TextOf(const StageCell& cell);

extern std::array<PosiRow, kPosiRows>& PosiTable;
extern std::array<PosiUnits, kPosiRows>& PosiUnitTable;
/// Staging table: columns 1 to 20 are table columns 0 to 19; column 0 is unused.
using StageRow = std::array<StageCell, kPosiColumns>;
extern std::array<StageRow, kPosiRows>& PosiStage;

// ---- range variables, position numbers ----

extern std::int16_t& GridFirst; ///< rows shown in the grid; 0 and 0: no data
extern std::int16_t& GridLast;
extern std::int16_t& GridRowCount;
extern std::int16_t& PosiFirst; ///< working range of the present operation
extern std::int16_t& PosiLast;

extern Flag& PosiDirtyFlag;       ///< the table holds unsaved changes
extern std::string& PosiFileName; ///< current file name without folder and extension
/// The folder of the last position file opened or saved; empty before the first one.
extern std::string& PosiFolder;
/// The file that was opened or written last, with its folder: where the next save goes. Empty while
/// the document has none.
extern std::string& PosiFilePath;

/// The five range variables, as they were when the object was made.
class RangesBefore {
public:
    RangesBefore();
    void putBack() const;

private:
    std::int16_t gridFirst;
    std::int16_t gridLast;
    std::int16_t gridRowCount;
    std::int16_t posiFirst;
    std::int16_t posiLast;
};

/// Fills every row with the defaults; clears both unit forms and the frame texts.
void ClearPosiTable();
/// Copies `PosiStage` to the table for the working range; the positions go to the pulse forms and
/// reach `PosiTable` with the next commit. A text that is no number counts as 0.
void PosiStageToTable();
/// Fills the mm of the positions from their pulses for the working range; an axis out of use gets
/// 0.
void ConvertTableToMm();
/// Forgets every row, as before the first document.
void EmptyPosiTable();
/// True if any cell of rows 0 to 998, table columns 0 to 10, is not the empty text.
bool PosiTableHasData();

/// Sets `PosiFileName` and shows it in `lblFileName`. The document has no file from then on.
void ShowPosiFileName(const std::string& name);
/// The document's file is `path` from now on: its folder is the current one, and its name without
/// the last four characters is shown.
void TakePosiFile(const std::string& path);
/// A file name without its extension of four characters.
std::string FileNameOnly(const std::string& fileName);

/// Part of `ResetPositions`.
void ResetPosiTable();

} // namespace qdw8
