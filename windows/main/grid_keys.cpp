#include "windows/main/grid_keys.h"

#include "position/flex_grid.h"
#include "position/grid_cursor.h"
#include "position/grid_editor.h"
#include "windows/main/cell_editor.h"

#include <QKeyEvent>
#include <algorithm>

namespace qdw8 {
namespace {

bool IsMove(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: return true;
    default: return false;
    }
}

void Copy(const GridKeys& keys) {
    const FlexGrid& grid = flgdData();
    const auto [left, right] = std::minmax(grid.col, grid.colSel);
    const bool lines = left == 1 && right == kGridCommentColumn;
    keys.command(lines ? Command::mnuEditLineCopy : Command::mnuEditCellCopy);
}

void Paste(const GridKeys& keys) {
    const bool lines = IsSet(LineCopiedFlag) && flgdData().col == 1;
    keys.command(lines ? Command::mnuEditLinePaste : Command::mnuEditCellPaste);
}

void BeginTyping(const QKeyEvent& event, const QString& text, const GridKeys& keys) {
    if (StartTyping(text.toStdString())) {
        flgdData_KeyDownEdit(EditKeyOf(event));
        keys.editBegun(text);
    }
}

void Enter() {
    if (!StartEdit()) {
        // A cell of an axis out of use: on to the next one, as behind an edit.
        flgdData_KeyDownEdit(kKeyEnter);
        flgdData_AfterEdit();
    }
}

} // namespace

bool RunGridKey(const QKeyEvent& event, const GridKeys& keys) {
    const bool nowhere = flgdData().row < kGridHeadRows;
    const QString typed = TypedText(event);
    if (IsMove(event)) {
        if (nowhere && keys.firstRow() >= kGridHeadRows) {
            GoToCell(keys.firstRow(), 1);
        }
        return nowhere;
    }
    if (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Paste)) {
        if (keys.command) {
            event.matches(QKeySequence::Copy) ? Copy(keys) : Paste(keys);
        }
    } else if (!typed.isEmpty()) {
        BeginTyping(event, typed, keys);
    } else if (event.key() == Qt::Key_F2) {
        StartEdit();
    } else if (event.key() == Qt::Key_Delete) {
        flgdData_Delete();
    } else if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        // An Enter that is held in the bar or in a box must not walk on through the cells.
        if (!nowhere && !event.isAutoRepeat()) {
            Enter();
        }
    } else {
        if (event.key() == Qt::Key_Escape) {
            CancelEdit();
        }
        return false;
    }
    return true;
}

} // namespace qdw8
