#pragma once

#include "position/flex_grid.h"
#include "position/posi_table.h"

#include <cstddef>
#include <vector>

/// What the user has done to the grid, step by step, kept so that it can be taken back;
/// `grid_undo.h` takes it back.
///
/// A step is what one deed of the user has changed, and holds that alone. The steps end when other
/// data are shown or everything is shown anew (`ShowTable`), and no step is ever brought back in
/// another unit or for other axes or actuators than it was done with: its figures meant something
/// else there. The oldest ones go when there are too many.
namespace qdw8 {

/// One deed of the user for the life of the object: the cells that differ when it goes are a step,
/// and steps that had been taken back are gone for good. Where none differs there is no step. They
/// nest; the outermost one counts.
class GridStep {
public:
    GridStep();
    ~GridStep();
    GridStep(const GridStep&) = delete;
    GridStep& operator=(const GridStep&) = delete;
};

/// The items that a step has put in the place of others, from index `at` on.
template<typename Item> struct Exchange {
    std::size_t at = 0;
    std::vector<Item> before;
    std::vector<Item> after;
};

/// Where the user was, and which rows the grid showed.
struct GridStand {
    RangesBefore ranges;
    int row = flgdData().row;
    int col = flgdData().col;
    int rowSel = flgdData().rowSel;
    int colSel = flgdData().colSel;
};

struct GridChange {
    Exchange<FlexGrid::Row> rows; ///< heads are counted; position numbers don't count
    Exchange<PosiRow> table;
    Exchange<PosiUnits> units;
    GridStand before;
    GridStand after;
};

/// The step to be taken back, or done again, next: it counts as taken back, or as done, from now
/// on. Null: there is none.
const GridChange* StepBack();
const GridChange* StepAgain();
/// The caller of either has brought grid and table where the step says: marks the document as
/// changed, or as unchanged where it surely is what was saved last.
void StepBrought();

/// Nothing can be taken back any more.
void EndGridHistory();
/// Rows go out to the controller: a document that was read from it and never saved can't be
/// brought back to what is kept there.
void ControllerTakesRows();

/// Tells the two commands whether there is something for them. To be called when axes or actuators
/// have changed, too: a save in between is of other figures.
void ShowUndoCommands();

/// Part of `ResetPositions`.
void ResetGridHistory();

} // namespace qdw8
