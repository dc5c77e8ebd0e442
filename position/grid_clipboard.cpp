#include "position/grid_clipboard.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/string_table.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/grid_editor.h"
#include "position/posi_table.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace qdw8 {
namespace {

constexpr std::size_t kLineTabs = kGridColumns - 2; // between the 20 cells of a line

using ClipRow = std::vector<std::string_view>;

/// Takes the first row off the text.
std::string_view NextRow(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view row = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
    return row;
}

ClipRow CellsOf(std::string_view row) {
    ClipRow cells;
    while (true) {
        const std::size_t tab = row.find('\t');
        cells.push_back(row.substr(0, tab));
        if (tab == std::string_view::npos) {
            return cells;
        }
        row.remove_prefix(tab + 1);
    }
}

/// At most `limit` rows: nobody pastes more than the grid takes, whatever the clipboard holds.
std::vector<ClipRow> RowsOf(std::string_view text, int limit) {
    std::vector<ClipRow> rows;
    while (!text.empty() && static_cast<int>(rows.size()) < limit) {
        rows.push_back(CellsOf(NextRow(text)));
    }
    return rows;
}

int LastGridRow() {
    return static_cast<int>(flgdData().rows.size()) - 1;
}

bool DataCellIsCurrent() {
    const auto [first, last] = SelectedRows();
    return first >= kGridHeadRows && last <= LastGridRow() && flgdData().col >= 1;
}

void Paste(int row, int column, std::string_view text) {
    SetGridText(row, column, std::string(text));
    flgdData_CellChanged(row, column);
}

void SetPasteFlags() {
    const std::int16_t kind = ClipKind(ThePlatform().TheClipboard.GetText());
    LineCopiedFlag = FlagOf(kind == 1);
    CellCopiedFlag = FlagOf(kind != 0);
}

void PutClip() {
    Clipboard& clipboard = ThePlatform().TheClipboard;
    if (clipboard.GetText() == GridText(flgdData().row, flgdData().col)) {
        clipboard.Clear();
    }
    clipboard.SetText(GridClip());
    SetPasteFlags();
    EditCMD_Yuko();
}

void PasteLines() {
    const int first = flgdData().row; // the current line, wherever the selection began
    const std::string text = ThePlatform().TheClipboard.GetText();
    const auto rows = RowsOf(text, LastGridRow() - first + 1);
    FreezeGrid();
    int row = first;
    for (const ClipRow& cells : rows) {
        int column = 1;
        for (const std::string_view cell : cells) {
            if (column > kGridCommentColumn) {
                break;
            }
            Paste(row, column++, cell);
        }
        ++row;
    }
    ThawGrid();
    PosiDirtyFlag = kSet;
    GoToCell(first, 1);
}

void PasteCells() {
    const auto [first, last] = SelectedRows();
    const int column = flgdData().col;
    const std::string text = ThePlatform().TheClipboard.GetText();
    ClipRow cells;
    for (const ClipRow& row : RowsOf(text, last - first + 1)) {
        cells.insert(cells.end(), row.begin(), row.end());
    }
    if (cells.empty()) {
        return;
    }
    FreezeGrid();
    for (int row = first; row <= last; ++row) {
        const auto index = static_cast<std::size_t>(row - first);
        if (cells.size() == 1) {
            Paste(row, column, cells.front());
        } else if (index < cells.size()) {
            Paste(row, column, cells[index]);
        }
    }
    ThawGrid();
    PosiDirtyFlag = kSet;
    LineCopiedFlag = kClear;
    EditCMD_Yuko();
}

} // namespace

std::int16_t ClipKind(const std::string& text) {
    if (text.empty()) {
        return 0;
    }
    std::string_view rest(text);
    const std::string_view line = NextRow(rest);
    const auto tabs = std::count(line.begin(), line.end(), '\t');
    return static_cast<std::size_t>(tabs) == kLineTabs ? 1 : 2;
}

void ClipboardChanged() {
    SetPasteFlags();
    if (flgdData().locked == 0 && DataCellIsCurrent()) {
        EditCMD_Yuko();
    }
}

void mnuEditCellCopy_Click() {
    const FlexGrid& grid = flgdData();
    if (!DataCellIsCurrent() || grid.row != grid.rowSel || grid.col != grid.colSel) {
        ThePlatform().ShowMessageBox({ResText(480), BoxButtons::Ok, {}, BoxIcon::Stop});
        return;
    }
    PutClip();
}

void mnuEditLineCopy_Click() {
    const FlexGrid& grid = flgdData();
    const auto [left, right] = std::minmax(grid.col, grid.colSel);
    if (!DataCellIsCurrent() || left != 1 || right != kGridCommentColumn) {
        ShowTexts({392});
        return;
    }
    PutClip();
}

void mnuEditCellPaste_Click() {
    if (!DataCellIsCurrent() || flgdData().col != flgdData().colSel) {
        ShowTexts({481});
        return;
    }
    CancelEdit();
    PasteCells();
}

void mnuEditLinePaste_Click() {
    if (!DataCellIsCurrent() || flgdData().col != 1) {
        ShowTexts({393});
        return;
    }
    CancelEdit();
    PasteLines();
}

} // namespace qdw8
