#include "position/posi_new.h"

#include "app/boxes.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "link/background.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_command.h"
#include "position/posi_file.h"
#include "position/posi_table.h"
#include "position/recovery.h"

#include <exception>

namespace qdw8 {
namespace {

constexpr std::int16_t kProposedRows = 15;

/// Unsaved changes can be saved first. False: the new document is not made.
bool OfferToSave() {
    if (!IsSet(PosiDirtyFlag)) {
        return true;
    }
    switch (AskBox(ResText(394), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes:
        SavePosiFile();
        if (IsSet(SaveCancelledFlag)) {
            ShowTexts({395});
            return false;
        }
        return true;
    case BoxAnswer::No: return true;
    default: return false;
    }
}

/// Asks for the rows, out of those proposed. False: cancelled.
bool AskRows() {
    GridFirst = 1;
    GridLast = GridRowCount = kProposedRows;
    return AskRange(Screens().frmSelectPosiNo3);
}

void ShowNewRows() {
    GridFirst = PosiFirst;
    GridLast = PosiLast;
    GridRowCount = static_cast<std::int16_t>(GridLast - GridFirst + 1);
    FreezeGrid();
    ClearPosiTable();
    QdDataHyoji_3();
    NothingUnsaved();
    ShowPosiFileName(ResText(213));
    ThawGrid();
}

} // namespace

void mnuFileNew_Click() {
    const PositionCommand command;
    if (!OfferToSave()) {
        return;
    }
    const RangesBefore before;
    if (AskRows()) {
        ShowNewRows();
    } else {
        before.putBack();
    }
}

void mnuFileClose_Click() {
    const PollHeld held; // nothing begins on the line under a question
    if (IsSet(PosiDirtyFlag)) {
        switch (AskBox(ResText(394), BoxButtons::YesNoCancel)) {
        case BoxAnswer::Yes: SavePosiFile(); break;
        case BoxAnswer::No: break;
        default: return;
        }
    }
    // Whatever is still unsaved, the window's own close asks about it before it is lost.
    Screens().frmMainClose();
}

} // namespace qdw8
