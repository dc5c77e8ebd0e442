#pragma once

#include "expected.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// The words for the grid of positions. A cell is told by the number of its position and its column
/// counted from 0: VEL, ACC, WAY, Posi of each axis, then ITPL, OUT, S/M and the comment, 19.
namespace e2e {

inline constexpr int kCommentColumn = 19;

/// The rows of the grid; the number of the position, then the cells.
QVector<GridRow> grid();
QStringList gridHeads();
/// Waits until the grid holds these rows, and fails with the first that parts.
void expectGrid(const QVector<GridRow>& wanted);
void waitCell(int position, int column, const QString& text);
/// Waits until the cursor stands on the cell with no edit box open.
void waitCursor(int position, int column);

void clickCell(int position, int column);
/// Selects from the cell that was clicked to this one.
void clickCellWithShift(int position, int column);
/// The number in front of a line: selects the whole line.
void clickLine(int position);
void clickLineWithShift(int position);
/// Goes to the cell, types over it and presses Enter; the cell then reads `becomes`.
void enter(int position, int column, const QString& text, const QString& becomes);
/// The same with a text that is refused: the edit box stays and holds `old` again; then Esc.
void enterRefused(int position, int column, const QString& text, const QString& old);

/// Waits for the result window of a check (or of a verify), expects these cells marked, as in
/// "5:1" for column 1 of position 5, and closes it.
void expectResults(bool verify, const QStringList& cells);

} // namespace e2e
