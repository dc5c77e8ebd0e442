#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <string>
#include <vector>

/// The grid `flgdData` as data: a table of text cells, its current cell and its state. The window
/// shows it and hands keys and clicks back; the rules work on it alone.
///
/// Rows 0 and 1 are heads, column 0 holds position numbers. Row g shows position
/// `GridFirst` + g - 2, column c shows table column c - 1. With no data there are exactly 2 rows.
namespace qdw8 {

inline constexpr int kGridColumns = 21;
inline constexpr int kGridHeadRows = 2;
inline constexpr int kGridCommentColumn = 20;

/// Background of a cell.
enum class CellColour : std::uint8_t {
    Window,  ///< the system's window colour
    Band,    ///< the blocks of AXIS 2 and AXIS 4
    OffAxis, ///< the block of an axis out of use
    Editing  ///< the cell being edited
};

/// Red, green, blue of a colour that the system fixes; `Window` has none of its own.
struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};
Rgb RgbOf(CellColour colour);

/// Where a text written to the current cell goes.
enum class FillMode : std::uint8_t {
    OneCell, ///< to this cell alone
    Repeat   ///< to every cell of the selection
};

/// The box in which a cell is edited; it stands on the current cell.
struct EditBox {
    bool open = false;
    std::string text;  ///< what stands in it now, UTF-8
    int maxLength = 0; ///< characters that can be typed
    /// A key that was to go into it was dropped, so what stands in it is not what the user typed.
    /// Before it is open: into the edit that typing would begin on the current cell.
    bool spoiled = false;
};

struct FlexGrid {
    struct Row {
        std::array<std::string, kGridColumns> text;
        std::array<CellColour, kGridColumns> colour{};
        std::bitset<kGridColumns>
            bad{}; ///< cells that the last check refused, or that couldn't be typed
    };
    std::vector<Row> rows = std::vector<Row>(kGridHeadRows);
    int row = 0; ///< current cell
    int col = 0;
    int rowSel = 0; ///< the other end of the selection
    int colSel = 0;
    int homes = 0;  ///< times that the grid went home: it then shows its first row
    int shown = 0;  ///< times that the current cell was to be scrolled to
    int locked = 0; ///< no selection and no editing while above 0
    int frozen = 0; ///< not painted while above 0
    FillMode fillMode = FillMode::OneCell;
    EditBox edit;
};

/// The grid of the main window.
const FlexGrid& flgdData();

/// Number of rows, heads included; at least 2. New rows are empty.
void SetGridRows(int count);
/// Text of a cell; a cell that doesn't exist faults.
const std::string& GridText(int row, int column);
void SetGridText(int row, int column, const std::string& text);
void SetGridColour(int row, int column, CellColour colour);
/// Marks a cell as refused by a check, or no longer; the mark goes with the row.
void SetGridBad(int row, int column, bool bad);
/// Writes a text to the current cell, or to the selection, by the fill mode.
void SetCurrentText(const std::string& text);
void SetFillMode(FillMode mode);
/// Adds an empty row in front of `row`, or behind the last one; takes a row out. Neither touches
/// the current cell. A row that doesn't exist or is a head faults.
void InsertGridRow(int row);
void RemoveGridRow(int row);
/// The selection as text: a tab between cells, a carriage return between rows.
std::string GridClip();

/// Rows of the selection from top to bottom, whichever end it began at.
struct GridSpan {
    int first = 0;
    int last = 0;
};
GridSpan SelectedRows();

/// The edit box, opened on the current cell with its text.
void OpenEditBox(int maxLength);
/// Takes over what stands in the edit box. In the comment a double quote becomes an apostrophe and
/// what lies behind 40 characters is cut: the box must show `flgdData().edit.text` afterwards. An
/// edit that is emptied is no longer spoiled.
void SetEditText(const std::string& text);
void SetEditSpoiled(bool spoiled);
void CloseEditBox();

/// Current cell and the other end of the selection. What was dropped on another cell is forgotten.
void SelectCells(int row, int column, int rowSel, int columnSel);

/// Stop and restart the painting around bulk changes; they nest.
void FreezeGrid();
void ThawGrid();
/// Starts the painting again whatever was left frozen by a routine that ended in a fault.
void ThawGridWholly();
/// Puts the current cell at row 0, column 0.
void GridHome();
/// Scrolls to the current cell, also if it has been that before.
void ShowCurrentCell();
/// Shows the grid again after its current cell or its edit box has changed.
void RefreshGrid();

/// No selection and no editing for the life of the object; they nest.
class GridLock {
public:
    GridLock();
    ~GridLock();
    GridLock(const GridLock&) = delete;
    GridLock& operator=(const GridLock&) = delete;
};

/// Text of a head cell, row 0 or 1.
std::string GridHead(int row, int column);

void ResetGrid();

} // namespace qdw8
