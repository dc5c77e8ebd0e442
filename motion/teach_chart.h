#pragma once

#include "app/Module1.h"
#include "motion/jog_position.h"

#include <cstdint>
#include <map>

/// The chart of the teaching window, `flgdJOGPosi`: positions that were taken by hand, kept beside
/// the position table until the user takes them over.
///
/// A row of the chart stands for the row of the table with the same position number. Only rows that
/// the grid of the main window shows are offered; the grid is locked while the chart is in use.
namespace qdw8 {

extern Flag& TeachingDataFlag;  ///< the chart holds data not yet taken over
extern std::int16_t& lblPosiNo; ///< position number of the chosen row; 0: no row is offered

/// The rows that hold a position, by their position numbers; pulses of the axes that were in use
/// when it was taken.
const std::map<std::int16_t, AxisPulses>& TeachChart();

/// An empty chart for the rows that the grid shows now. The row of the grid's cursor is chosen,
/// else the first one. The grid is locked until `ResetTeachChart`.
void LoadTeachChart();
/// Chooses a row; nothing happens for one that isn't offered.
void ChooseTeachRow(int position);
/// Takes a position into the chosen row, over what it holds. Nothing happens where no row is
/// offered.
void TeachPosition(const AxisPulses& present);

/// What is to become of the chart's data.
enum class ChartEnd : std::uint8_t {
    Adopt, ///< into the position table (`AdoptTeachingData`)
    Leave, ///< there are none, or the user doesn't want them
    Stay   ///< neither: the window is to stay
};
/// Asks the user, where there are data.
ChartEnd AskAboutTeachChart();
/// Writes the taught positions to their rows of the table, in pulses and in millimetres, and shows
/// them in the grid; nothing else in the grid changes. The table counts as edited where anything
/// was written. The axes must have the devices that they keep: other ones would make other pulses
/// of the millimetres. An axis that is out of use by now keeps what it has, and a box tells.
void AdoptTeachingData();

/// The chart is no longer in use: empty, no row offered.
void ResetTeachChart();

} // namespace qdw8
