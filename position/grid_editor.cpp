#include "position/grid_editor.h"

#include "app/number_forms.h"
#include "platform/platform.h"
#include "position/cell_edit.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/grid_history.h"
#include "position/grid_lines.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <algorithm>

namespace qdw8 {

namespace {

/// A position in mm is cut behind so many decimals.
constexpr std::size_t kDecimals = 3;

int LastGridRow() {
    return static_cast<int>(flgdData().rows.size()) - 1;
}

bool CanBeEdited(int row, int column) {
    return flgdData().locked == 0 && row >= kGridHeadRows && row <= LastGridRow() && column >= 1 &&
           column < kGridColumns && !IsOffColumn(column - 1);
}

/// What is left of the text may look like a number that nobody typed; a single character can't.
void Drop(bool spoils) {
    ThePlatform().Beep();
    const bool single = ColumnOf(flgdData().col - 1).editLength == 1;
    SetEditSpoiled(flgdData().edit.spoiled || (spoils && !single));
}

/// True if the character may be typed into the current cell.
bool flgdData_KeyPressEdit(char c) {
    return PassesFilter(flgdData().col - 1, static_cast<unsigned char>(c));
}

bool AllPass(std::string_view typed) {
    return std::all_of(typed.begin(), typed.end(), flgdData_KeyPressEdit);
}

std::string_view WithoutSpareDecimals(std::string_view figure) {
    const std::size_t point = figure.find('.');
    return point == std::string_view::npos ? figure : figure.substr(0, point + 1 + kDecimals);
}

void PutOldTextBack() {
    SetEditText(EditOldText);
    SetEditSpoiled(false);
    RefreshGrid();
}

/// Enter moves along the row, and from its comment into the next row. Behind the last row it adds
/// one, as long as there are position numbers left.
void EnterWay() {
    const int row = flgdData().row;
    const int column = flgdData().col;
    if (row < kGridHeadRows) {
        return; // no cell is current
    }
    if (column < kGridCommentColumn) {
        GoToCell(row, column + 1);
    } else if (row < LastGridRow()) {
        GoToCell(row + 1, 1);
    } else if (row <= kLastPosition && GridLast < kLastPosition && GridShowsItsRange()) {
        InsertLines(row + 1, 1);
    } else {
        GoToCell(kGridHeadRows, 1);
    }
}

/// Bytes of a text that might fit into a cell, blanks around a figure included.
constexpr std::size_t kLongestPaste = 1000;

int CharactersIn(std::string_view text) {
    return static_cast<int>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

/// A cell is one line, and what lies outside ASCII goes into the comment alone.
bool CanBePasted(int tableColumn, char c) {
    const auto code = static_cast<unsigned char>(c);
    return code >= ' ' && PassesFilter(tableColumn, char32_t{code});
}

/// Writes the accepted text to the selected rows of the edited column.
void WriteToSelection(const std::string& text) {
    const FlexGrid& grid = flgdData();
    const bool multiColumn = grid.col != grid.colSel;
    const bool multiCell = multiColumn || grid.row != grid.rowSel;
    if (multiCell) {
        SelectCells(grid.row, grid.col, grid.rowSel, grid.col);
        SetFillMode(FillMode::Repeat);
    }
    FreezeGrid();
    SetCurrentText(text);
    SetFillMode(FillMode::OneCell);
    const auto [first, last] = SelectedRows();
    for (int row = first; row <= last; ++row) {
        flgdData_CellChanged(row, grid.col);
    }
    ThawGrid();
}

} // namespace

void flgdData_CellChanged(int row, int column) {
    SetGridBad(row, column, false);
    RestoreBlockColour(row, column);
}

bool flgdData_DblClick() {
    return StartEdit();
}

bool StartEdit() {
    const FlexGrid& grid = flgdData();
    return !grid.edit.open && flgdData_BeforeEdit(grid.row, grid.col);
}

bool StartTyping(std::string_view typed) {
    const FlexGrid& grid = flgdData();
    if (!CanBeEdited(grid.row, grid.col)) {
        return false;
    }
    if (!AllPass(typed)) {
        Drop(true);
        return false;
    }
    const bool spoiled = grid.edit.spoiled;
    if (!StartEdit()) {
        return false;
    }
    SetEditSpoiled(spoiled);
    return true;
}

void ForgetDroppedKeys() {
    SetEditSpoiled(flgdData().edit.open && flgdData().edit.spoiled);
}

bool flgdData_BeforeEdit(int row, int column) {
    const FlexGrid& grid = flgdData();
    if (!CanBeEdited(row, column)) {
        return false;
    }
    if (row != grid.row || column != grid.col) {
        SelectCells(row, column, row, column);
    }
    LastEditKey = 0;
    SetFillMode(FillMode::OneCell);
    EditOldText = GridText(row, column);
    SetGridColour(row, column, CellColour::Editing);
    OpenEditBox(ColumnOf(column - 1).editLength);
    return true;
}

void flgdData_KeyDownEdit(int key) {
    LastEditKey = key;
    if (key == kKeyEscape) {
        PutOldTextBack();
    }
}

bool TypeIntoEdit(std::string_view typed, std::string_view becomes) {
    const EditBox& edit = flgdData().edit;
    if (typed.empty()) {
        return true;
    }
    const bool fits = CharactersIn(becomes) <= std::max(edit.maxLength, CharactersIn(edit.text));
    if (flgdData().col == kGridCommentColumn) {
        return fits;
    }
    const bool passes = AllPass(typed);
    if (!fits || !passes) {
        const bool decimals = passes && typed.find('.') == std::string_view::npos &&
                              WithoutSpareDecimals(becomes) == WithoutSpareDecimals(edit.text);
        Drop(!decimals);
        return false;
    }
    if (typed == becomes && !Trim(edit.text).empty()) {
        SetEditSpoiled(false); // it takes the place of everything
    }
    return true;
}

bool flgdData_ValidateEdit() {
    const FlexGrid& grid = flgdData();
    if (grid.edit.spoiled) {
        ThePlatform().Beep();
    } else if (SetDataForFlex(grid.row, grid.col) == 0) {
        WriteToSelection(std::string(grid.edit.text));
        return true;
    }
    // An Enter that was refused must not carry a later click to the next cell.
    LastEditKey = 0;
    SetGridText(grid.row, grid.col, EditOldText);
    PutOldTextBack();
    return false;
}

void flgdData_AfterEdit() {
    const int key = LastEditKey;
    LastEditKey = 0;
    if (key == kKeyEnter) {
        EnterWay();
    } else if (key == kKeyTab && flgdData().col < kGridCommentColumn) {
        GoToCell(flgdData().row, flgdData().col + 1);
    }
}

bool CommitEdit() {
    if (!flgdData().edit.open) {
        return true;
    }
    const GridStep step; // the line that Enter adds is part of it
    if (!flgdData_ValidateEdit()) {
        return false;
    }
    CloseEditBox();
    flgdData_AfterEdit();
    return true;
}

void flgdData_Delete() {
    const FlexGrid& grid = flgdData();
    const auto [first, last] = SelectedRows();
    ForgetDroppedKeys();
    if (grid.locked > 0 || grid.edit.open || grid.col != kGridCommentColumn ||
        grid.colSel != kGridCommentColumn || first < kGridHeadRows || last > LastGridRow()) {
        return;
    }
    const GridStep step;
    FreezeGrid();
    for (int row = first; row <= last; ++row) {
        SetGridText(row, kGridCommentColumn, {});
        flgdData_CellChanged(row, kGridCommentColumn);
    }
    PosiDirtyFlag = kSet;
    ThawGrid();
}

std::optional<std::string> TextToPaste(std::string_view pasted, int room) {
    for (const char end : {'\n', '\r'}) {
        if (pasted.ends_with(end)) {
            pasted.remove_suffix(1);
        }
    }
    const int column = flgdData().col - 1;
    std::string text;
    // A text that is longer than any cell holds isn't looked at; each character has four bytes at
    // most.
    if (pasted.size() <= kLongestPaste) {
        text = column == kComment ? BoundCellText(kComment, pasted).text : Trim(pasted);
    }
    if (text.empty() || CharactersIn(text) > room ||
        (column == kComment && CharactersIn(text) != CharactersIn(pasted)) ||
        !std::all_of(text.begin(), text.end(),
                     [column](char c) { return CanBePasted(column, c); })) {
        ThePlatform().Beep();
        return std::nullopt;
    }
    return text;
}

} // namespace qdw8
