#include "position/grid_clipboard.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/string_table.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/grid_editor.h"
#include "position/grid_history.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace qdw8 {
namespace {

constexpr std::size_t kLineTabs = kGridColumns - 2; // between the 20 cells of a line

/// The rows of a text, one after the other. Nothing of it is copied, and each character is looked
/// at once: a clipboard may hold a hundred megabytes.
class ClipRows {
public:
    explicit ClipRows(std::string_view clip) : rest(clip) {}

    bool atEnd() const { return rest.empty(); }

    std::string_view next() {
        const std::size_t end = std::min({endAt(cr, '\r'), endAt(lf, '\n'), rest.size()});
        const std::string_view row = rest.substr(0, end);
        drop(end);
        drop(rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest.size(), 1));
        return row;
    }

private:
    /// Where the next one of a kind of row end stands, counted from the beginning of the rest.
    std::size_t endAt(std::size_t& known, char end) const {
        if (known < dropped) {
            const std::size_t at = rest.find(end);
            known = at == std::string_view::npos ? at : dropped + at;
        }
        return known == std::string_view::npos ? known : known - dropped;
    }
    void drop(std::size_t count) {
        rest.remove_prefix(count);
        dropped += count;
    }

    std::string_view rest;
    std::size_t dropped = 1; ///< counted from 1, so that nothing is known at first
    std::size_t cr = 0;
    std::size_t lf = 0;
};

/// Where a quoted cell that begins here ends, behind its closing quote; npos if it is none.
std::size_t EndOfQuoted(std::string_view text, std::size_t begin) {
    for (std::size_t at = text.find('"', begin + 1); at != text.npos; at = text.find('"', at + 2)) {
        const std::string_view behind = text.substr(at + 1);
        if (!behind.starts_with('"')) {
            const bool cellEnds = behind.empty() || behind.find_first_of("\t\r\n") == 0;
            return cellEnds ? at + 1 : text.npos;
        }
    }
    return text.npos;
}

/// Spreadsheets quote a cell that holds a line break, a tab or a quote. Taken at its word it would
/// shift every row behind it; here such breaks become blanks. A cell that needed no quotes keeps
/// them.
std::string WithoutQuotedBreaks(std::string text) {
    if (text.find('"') == text.npos) {
        return text;
    }
    std::string plain;
    bool cellBegins = true;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = cellBegins && text[at] == '"' ? EndOfQuoted(text, at) : text.npos;
        if (end == text.npos) {
            cellBegins = text[at] == '\t' || text[at] == '\r' || text[at] == '\n';
            plain += text[at++];
            continue;
        }
        const std::string_view cell = std::string_view(text).substr(at + 1, end - at - 2);
        if (cell.find_first_of("\t\r\n\"") == cell.npos) {
            plain += text.substr(at, end - at);
        } else {
            for (std::size_t i = 0; i < cell.size(); ++i) {
                const bool crLf = cell.substr(i).starts_with("\r\n");
                const bool pair = cell[i] == '"';
                plain += cell[i] == '\t' || cell[i] == '\r' || cell[i] == '\n' ? ' ' : cell[i];
                i += crLf || pair ? 1 : 0;
            }
        }
        at = end;
        cellBegins = false;
    }
    return plain;
}

std::string ClipText() {
    return WithoutQuotedBreaks(ThePlatform().TheClipboard.GetText());
}

/// The first cells of a row, at most `limit` of them.
std::vector<std::string_view> CellsOf(std::string_view row, std::size_t limit) {
    std::vector<std::string_view> cells;
    while (cells.size() < limit) {
        const std::size_t tab = row.find('\t');
        cells.push_back(row.substr(0, tab));
        if (tab == std::string_view::npos) {
            break;
        }
        row.remove_prefix(tab + 1);
    }
    return cells;
}

int LastGridRow() {
    return static_cast<int>(flgdData().rows.size()) - 1;
}

bool DataCellIsCurrent() {
    const auto [first, last] = SelectedRows();
    return first >= kGridHeadRows && last <= LastGridRow() && flgdData().col >= 1;
}

/// The cells that one command pastes; a comment that was cut is told once, at its end.
class Pasting {
public:
    Pasting() { FreezeGrid(); }
    ~Pasting() { ThawGrid(); }
    Pasting(const Pasting&) = delete;
    Pasting& operator=(const Pasting&) = delete;

    void put(int row, int column, std::string_view text) {
        BoundText bound = BoundCellText(column - 1, text);
        commentCut = commentCut || (bound.cut && column == kGridCommentColumn);
        SetGridText(row, column, bound.text);
        flgdData_CellChanged(row, column);
    }

    bool commentCut = false;
};

void TellIfCut(bool commentCut) {
    if (commentCut) {
        ShowTexts({3020});
    }
}

void SetPasteFlags() {
    const std::int16_t kind = ClipKind(ClipText());
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

/// From the current line on, as far as the grid goes. True: a comment was cut.
bool PutLines() {
    const std::string text = ClipText();
    const GridStep step;
    Pasting pasting;
    ClipRows rows(text);
    for (int row = flgdData().row; row <= LastGridRow() && !rows.atEnd(); ++row) {
        int column = 1;
        for (const std::string_view cell : CellsOf(rows.next(), kGridCommentColumn)) {
            pasting.put(row, column++, cell);
        }
    }
    PosiDirtyFlag = kSet;
    GoToCell(flgdData().row, 1); // the current line, wherever the selection began
    return pasting.commentCut;
}

void PasteLines() {
    TellIfCut(PutLines());
}

/// Down the selection: one cell fills it, several go down it in order. True: a comment was cut.
bool PutCells(const std::vector<std::string_view>& cells) {
    const GridStep step;
    Pasting pasting;
    const auto [first, last] = SelectedRows();
    for (int row = first; row <= last; ++row) {
        const auto index = static_cast<std::size_t>(row - first);
        if (cells.size() == 1) {
            pasting.put(row, flgdData().col, cells.front());
        } else if (index < cells.size()) {
            pasting.put(row, flgdData().col, cells[index]);
        }
    }
    PosiDirtyFlag = kSet;
    return pasting.commentCut;
}

void PasteCells() {
    const auto [first, last] = SelectedRows();
    const auto wanted = static_cast<std::size_t>(last) - static_cast<std::size_t>(first) + 1;
    const std::string text = ClipText();
    std::vector<std::string_view> cells;
    for (ClipRows rows(text); !rows.atEnd() && cells.size() < wanted;) {
        const auto row = CellsOf(rows.next(), wanted - cells.size());
        cells.insert(cells.end(), row.begin(), row.end());
    }
    if (cells.empty()) {
        return;
    }
    const bool commentCut = PutCells(cells);
    LineCopiedFlag = kClear;
    EditCMD_Yuko();
    TellIfCut(commentCut);
}

} // namespace

std::int16_t ClipKind(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const std::string_view line = ClipRows(text).next();
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
        AskBox({ResText(480), BoxButtons::Ok, {}, BoxIcon::Stop});
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
