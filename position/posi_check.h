#pragma once

#include "app/Module1.h"

#include <cstdint>

/// The test of a range of the grid, and the way of its contents into the position table.
namespace qdw8 {

/// 0 the grid holds the rows that it says; 1 it doesn't, and a box has said so.
std::int16_t Check_flgdLineNo();

/// What became of a check.
enum class PosiCheck : std::uint8_t {
    Committed, ///< all rows were clean; the table holds what the grid shows
    Refused,   ///< the result window, or a box, has told why; `PosiRowError` tells the rows
    Faulted,   ///< a number too large for any cell, or a device without figures; nothing is told
    NoData     ///< the grid holds no rows; nothing is told
};

/// Tests the grid's rows of the working range and, only if all are clean, commits them to the table
/// in whole; each cell shows then what was committed. The user's place stays.
PosiCheck PosiDataCheck3();

/// `PosiDataCheck3` for a command that goes on with the table: true if the table now holds what the
/// grid shows. A check that faulted is told with the text of the id, since going on would save or
/// send other rows than the user sees.
bool TableTakesGrid(std::int16_t faultText);

/// `PosiDataCheck3` for all rows of the grid, whatever range a command has left. Where what is
/// committed differs from what the table held, it counts as unsaved: with other devices the text of
/// millimetres makes other pulses, and so it does where a pulse is finer than the text.
PosiCheck CheckWholeGrid();

/// Changes the unit of the positions, `mm` -1 or 0: the whole grid is checked and committed in the
/// old unit, then everything is shown in the new one. 0 good. 1 the grid has errors, which the
/// result window has shown, or can't be committed; the unit is as it was.
std::int16_t ChangeUnit(Flag mm);

} // namespace qdw8
