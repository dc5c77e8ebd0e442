#pragma once

#include "app/Module1.h"
#include "position/posi_columns.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

/// What is printed of positions, as texts. It stands by itself: no file and no read that comes in
/// the middle of a print meets it.
namespace qdw8 {

struct PosiPrintRow {
    int position = 0;
    std::array<std::string, kComment + 1> cells; ///< by table column; empty for an axis out of use
};

struct PosiPrint {
    std::string fileName;                   ///< as it is printed
    std::string path;                       ///< of the file; empty when there is none
    std::array<std::string, kAxes> devices; ///< empty for an axis out of use
    std::vector<PosiPrintRow> rows;
};

/// The rows of the table in the working range. The table must hold what the grid shows.
PosiPrint StageShownPositions();

/// Reads a file, asks for a range of it and stages that, positions in the unit of the view.
/// Nothing: the user cancelled, or a box has told what is wrong with the file. Grid, table, range
/// variables and all that the reader of files fills are as they were, whatever became of it.
std::optional<PosiPrint> StagePosiFile(const std::string& path);

} // namespace qdw8
