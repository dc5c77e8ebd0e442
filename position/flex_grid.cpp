#include "position/flex_grid.h"

#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "platform/fault.h"
#include "position/posi_columns.h"

#include <algorithm>

namespace qdw8 {
namespace {

FlexGrid grid;

FlexGrid::Row& RowAt(int row, int column) {
    if (row < 0 || row >= static_cast<int>(grid.rows.size()) || column < 0 ||
        column >= kGridColumns) {
        throw Fault("the grid has no such cell");
    }
    return grid.rows[static_cast<std::size_t>(row)];
}

/// The edit commands come back with a selection that still stands.
void NoteSelection() {
    const auto [first, last] = SelectedRows();
    LineSelectedFlag = FlagOf(first >= kGridHeadRows && last < static_cast<int>(grid.rows.size()));
}

void Tell() {
    if (grid.frozen == 0 && Screens().flgdData) {
        Screens().flgdData();
    }
}

} // namespace

Rgb RgbOf(CellColour colour) {
    switch (colour) {
    case CellColour::Band: return {0xFF, 0xFF, 0xC0};
    case CellColour::OffAxis: return {0xE0, 0xE0, 0xE0};
    case CellColour::Editing: return {0xC0, 0xFF, 0xFF};
    case CellColour::Window: break;
    }
    return {0xFF, 0xFF, 0xFF};
}

const FlexGrid& flgdData() {
    return grid;
}

void SetGridRows(int count) {
    grid.rows.resize(static_cast<std::size_t>(std::max(count, kGridHeadRows)));
    const int last = static_cast<int>(grid.rows.size()) - 1;
    grid.row = std::min(grid.row, last);
    grid.rowSel = std::min(grid.rowSel, last);
    NoteSelection();
    Tell();
}

const std::string& GridText(int row, int column) {
    return RowAt(row, column).text[static_cast<std::size_t>(column)];
}

void SetGridText(int row, int column, const std::string& text) {
    RowAt(row, column).text[static_cast<std::size_t>(column)] = text;
    Tell();
}

void SetGridColour(int row, int column, CellColour colour) {
    RowAt(row, column).colour[static_cast<std::size_t>(column)] = colour;
    Tell();
}

void SetGridBad(int row, int column, bool bad) {
    RowAt(row, column).bad.set(static_cast<std::size_t>(column), bad);
    Tell();
}

void SetCurrentText(const std::string& text) {
    if (grid.fillMode == FillMode::OneCell) {
        SetGridText(grid.row, grid.col, text);
        return;
    }
    const auto [top, bottom] = SelectedRows();
    const auto [left, right] = std::minmax(grid.col, grid.colSel);
    FreezeGrid();
    for (int row = top; row <= bottom; ++row) {
        for (int column = left; column <= right; ++column) {
            SetGridText(row, column, text);
        }
    }
    ThawGrid();
}

void SetFillMode(FillMode mode) {
    grid.fillMode = mode;
}

void InsertGridRow(int row) {
    if (row < kGridHeadRows || row > static_cast<int>(grid.rows.size())) {
        throw Fault("a row can't be added there");
    }
    grid.rows.emplace(grid.rows.begin() + row);
    Tell();
}

void RemoveGridRow(int row) {
    if (row < kGridHeadRows || row >= static_cast<int>(grid.rows.size())) {
        throw Fault("the grid has no such row");
    }
    grid.rows.erase(grid.rows.begin() + row);
    NoteSelection();
    Tell();
}

std::string GridClip() {
    const auto [top, bottom] = SelectedRows();
    const auto [left, right] = std::minmax(grid.col, grid.colSel);
    std::string text;
    for (int row = top; row <= bottom; ++row) {
        for (int column = left; column <= right; ++column) {
            text += GridText(row, column);
            text += column < right ? "\t" : "";
        }
        text += row < bottom ? "\r" : "";
    }
    return text;
}

GridSpan SelectedRows() {
    return {std::min(grid.row, grid.rowSel), std::max(grid.row, grid.rowSel)};
}

void OpenEditBox(int maxLength) {
    grid.edit = {true, GridText(grid.row, grid.col), maxLength, false};
    Tell();
}

void SetEditText(const std::string& text) {
    // What the form of the file can't hold is replaced in sight of the user.
    grid.edit.text = grid.col == kGridCommentColumn ? BoundCellText(kComment, text).text : text;
    grid.edit.spoiled = grid.edit.spoiled && !text.empty();
}

void SetEditSpoiled(bool spoiled) {
    grid.edit.spoiled = spoiled;
}

void CloseEditBox() {
    grid.edit = EditBox{};
    Tell();
}

void SelectCells(int row, int column, int rowSel, int columnSel) {
    grid.edit.spoiled = grid.edit.spoiled && row == grid.row && column == grid.col;
    grid.row = row;
    grid.col = column;
    grid.rowSel = rowSel;
    grid.colSel = columnSel;
    NoteSelection();
}

void FreezeGrid() {
    ++grid.frozen;
}

void ThawGrid() {
    if (grid.frozen > 0) {
        --grid.frozen;
        Tell();
    }
}

void ThawGridWholly() {
    grid.frozen = 0;
    Tell();
}

void GridHome() {
    ++grid.homes;
    SelectCells(0, 0, 0, 0);
    Tell();
}

void ShowCurrentCell() {
    ++grid.shown;
    Tell();
}

void RefreshGrid() {
    Tell();
}

GridLock::GridLock() {
    ++grid.locked;
    Tell();
}

GridLock::~GridLock() {
    --grid.locked;
    Tell();
}

std::string GridHead(int row, int column) {
    if (column == 0) {
        return row == 0 ? "" : ResText(248);
    }
    const PosiColumn& kind = ColumnOf(column - 1);
    if (kind.axis < 0) {
        // "ITPL", "OUT", "S/M" and "COMMENT" stand under "Common".
        return ResText(row == 0 ? std::int16_t{224} : kind.label);
    }
    const auto axis = static_cast<std::size_t>(kind.axis);
    if (row == 0) {
        const std::string& header = ThePanel().axisHeader[axis];
        return header.empty() ? ResText(static_cast<std::int16_t>(220 + axis)) : header;
    }
    return kind.item == kPosi ? ThePanel().posiHeader[axis] : ResText(kind.label);
}

void ResetGrid() {
    grid = FlexGrid{};
    NoteSelection();
}

} // namespace qdw8
