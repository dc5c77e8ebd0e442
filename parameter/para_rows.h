#pragma once

#include "parameter/para_set.h"

#include <array>
#include <cstdint>
#include <string>
#include <variant>

/// The staging table through which files and controller reads reach `ParaSet`: nothing that came
/// in only half ever gets further than here.
namespace qdw8 {

inline constexpr std::size_t kParaColumns = 5; ///< 0 to 3 are AXIS 1 to AXIS 4; common items: 0
inline constexpr std::size_t kParaRows = 36;

/// Nothing, a number or a text.
using ParaCell = std::variant<std::monostate, double, std::string>;

struct ParaRows {
    std::array<std::array<ParaCell, kParaRows>, kParaColumns> cells; ///< by column, then row
    /// The parts of the `Actuator` row, where they came as such: from the controller.
    std::array<ActuatorParts, kAxes> parts;

    ParaCell& at(std::size_t column, std::size_t row) { return cells.at(column).at(row); }
    const ParaCell& at(std::size_t column, std::size_t row) const {
        return cells.at(column).at(row);
    }
    bool operator==(const ParaRows&) const = default;
};

extern ParaRows ParaRowTable;

/// What a field of a file becomes: empty, a number if all of it is one, else a text.
ParaCell CellOfField(const std::string& field);
/// The number of a cell, 0 for an empty one. Faults for a text that isn't a number as a whole.
double CellNumber(const ParaCell& cell);
/// The text of a cell.
std::string CellText(const ParaCell& cell);

/// Where the rows came from: from the controller the parts of `Actuator` are taken as they are,
/// from a file they are parsed out of the text.
enum class RowSource { File, Controller };

/// Copies `ParaRowTable` into `ParaSet`, all four axes whether in use or not. 0 good; 1 a cell
/// holds a text where a number is due or a number too wide for its item, and `ParaSet` is as it
/// was. An empty cell counts as 0 or as an empty text.
std::int16_t ApplyRowTable(RowSource source);

/// Fills `ParaRowTable` with `ParaSet`, all four axes, under a name in the place of a file's.
void FillRowTable(const std::string& name);

} // namespace qdw8
