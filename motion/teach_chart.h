#pragma once

#include "app/Module1.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

/// The chart of the teaching window, `flgdJOGPosi`: positions that were taken by hand, kept beside
/// the position table until the user takes them over.
///
/// A row of the chart stands for the row of the table with the same position number. Only rows that
/// the grid of the main window shows are offered; the grid is locked while the chart is in use.
namespace qdw8 {

/// One row that holds a position.
struct TaughtPosition {
    std::array<std::optional<std::int32_t>, kAxes> pulse; ///< of the axes in use when it was taken
    std::array<std::string, kAxes> text; ///< as the window showed it, in the display unit
};

extern Flag& TeachingDataFlag;  ///< the chart holds data not yet taken over
extern std::int16_t& lblPosiNo; ///< position number of the chosen row; 0: no row is offered

/// The rows that hold a position, by their position numbers.
const std::map<std::int16_t, TaughtPosition>& TeachChart();

/// An empty chart for the rows that the grid shows now. The row of the grid's cursor is chosen,
/// else the first one. The grid is locked until `ResetTeachChart`.
void LoadTeachChart();
/// Chooses a row; nothing happens for one that isn't offered.
void ChooseTeachRow(int position);
/// Takes a position into the chosen row, over what it holds. Nothing happens where no row is
/// offered.
void TeachPosition(const TaughtPosition& present);

/// What becomes of the chart's data: without any, true. Otherwise the user is asked whether to take
/// them over into the position table. Yes does (`AdoptTeachingData`); No leaves the table alone.
/// False: neither, the window is to stay.
bool MayLeaveTeachChart();
/// Writes the taught positions to their rows of the table, in pulses and in millimetres, and shows
/// them in the grid; nothing else in the grid changes. The table counts as edited. An axis that is
/// out of use by now keeps what it has.
void AdoptTeachingData();

/// The chart is no longer in use: empty, no row offered.
void ResetTeachChart();

} // namespace qdw8
