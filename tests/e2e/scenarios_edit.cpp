#include "cable.h"
#include "hands.h"
#include "table.h"
#include "user.h"

/// The grid under the hands: keys, lines, clipboard, and the check before a save.
namespace e2e {

namespace {

const QStringList kUnpaced{QStringLiteral("--unpaced")};
const QString kMnuEdit = QStringLiteral("mnuEdit");

/// Fifteen positions from the controller, to work on.
QVector<GridRow> readFifteen() {
    startOnLine();
    askForPositions(1, 15);
    waitText(QStringLiteral("lblFileName"), text(374));
    waitReady(QStringLiteral("cmdPosiSaveFile"));
    const QVector<GridRow> rows = expectedRows(1, 15, Unit::Mm);
    expectGrid(rows);
    return rows;
}

/// A line as it begins: the axes' defaults, and acceleration 2 where 3 is too much.
GridRow freshRow(int position) {
    const auto number = [](int value) { return QString::number(value); };
    GridRow row{number(position)};
    for (int axis = 0; axis < 4; ++axis) {
        row << number(30) << number(axis == 3 ? 2 : 3) << number(0) << QStringLiteral("  0.000");
    }
    return row << number(0) << number(0) << number(0) << QString();
}

void renumber(QVector<GridRow>& rows) {
    for (qsizetype i = 0; i < rows.size(); ++i) {
        rows[i][0] = QString::number(i + 1);
    }
}

} // namespace

void editCells() {
    const Cable cable(kUnpaced);
    QVector<GridRow> rows = readFifteen();

    // Enter takes the text and goes on along the row.
    enter(1, 0, QStringLiteral("45"), QStringLiteral("45"));
    waitCursor(1, 1);
    keyIn(QStringLiteral("9")); // no acceleration: the key does nothing
    keyIn(QStringLiteral("1"));
    press(QStringLiteral("Return"));
    waitCell(1, 1, QStringLiteral("1"));
    waitCursor(1, 2);
    enter(1, 3, QStringLiteral("12.34"), QStringLiteral(" 12.340"));
    rows[0][1] = QStringLiteral("45");
    rows[0][2] = QStringLiteral("1");
    rows[0][4] = QStringLiteral(" 12.340");
    expectGrid(rows);

    // What the axis can't do is refused, and the old text comes back.
    enterRefused(2, 0, QStringLiteral("61"), rows[1][1]);
    enterRefused(2, 3, QStringLiteral("300.02"), rows[1][4].trimmed());
    expectGrid(rows);

    // One text for a whole selection, above each other.
    clickCell(3, 0);
    clickCellWithShift(6, 0);
    keyIn(QStringLiteral("20"));
    press(QStringLiteral("Return"));
    waitCell(6, 0, QStringLiteral("20"));
    for (int row = 2; row <= 5; ++row) {
        rows[row][1] = QStringLiteral("20");
    }
    expectGrid(rows);

    // Enter behind the last comment begins a new line.
    enter(15, kCommentColumn, QStringLiteral("end"), QStringLiteral("end"));
    waitCursor(16, 0);
    rows[14][20] = QStringLiteral("end");
    rows += freshRow(16);
    expectGrid(rows);

    clickLine(4);
    clickLineWithShift(5);
    click(QStringLiteral("cmdInsertLine"));
    rows.insert(3, 2, freshRow(0));
    renumber(rows);
    expectGrid(rows);

    clickLine(10);
    click(QStringLiteral("cmdDeleteLine"));
    rows.removeAt(9);
    renumber(rows);
    expectGrid(rows);

    // Lines and cells by way of the clipboard, from the menu and by the keys.
    clickLine(1);
    choose({kMnuEdit, QStringLiteral("mnuEditLineCopy")});
    clickLine(9);
    choose({kMnuEdit, QStringLiteral("mnuEditLinePaste")});
    rows[8] = rows[0];
    renumber(rows);
    expectGrid(rows);

    clickCell(1, 3);
    press(QStringLiteral("ctrl+c"));
    clickCell(11, 3);
    press(QStringLiteral("ctrl+v"));
    rows[10][4] = rows[0][4];
    expectGrid(rows);
    clickCell(12, 3);
    clickCellWithShift(13, 3);
    choose({kMnuEdit, QStringLiteral("mnuEditCellPaste")});
    rows[11][4] = rows[12][4] = rows[0][4];
    expectGrid(rows);

    // What isn't one cell is not copied as one.
    clickCell(1, 3);
    clickCellWithShift(2, 3);
    choose({kMnuEdit, QStringLiteral("mnuEditCellCopy")});
    expectBox(text(480), QStringLiteral("Ok"));

    tryToLeave();
    expectBox(text(391), QStringLiteral("Cancel"));
    waitReady(QStringLiteral("cmdPosiRead"));
    expectGrid(rows);
    leaveUnsaved();
}

void checkErrors() {
    const Cable cable(kUnpaced);
    QVector<GridRow> rows = readFifteen();
    // Pasting doesn't check: a speed gets where an acceleration belongs.
    enter(1, 0, QStringLiteral("45"), QStringLiteral("45"));
    clickCell(1, 0);
    press(QStringLiteral("ctrl+c"));
    clickCell(5, 1);
    press(QStringLiteral("ctrl+v"));
    waitCell(5, 1, QStringLiteral("45"));
    clickCell(7, 2);
    press(QStringLiteral("ctrl+v"));
    waitCell(7, 2, QStringLiteral("45"));
    click(QStringLiteral("cmdPosiSaveFile"));
    expectResults(false, {QStringLiteral("5:1"), QStringLiteral("7:2")});

    enter(5, 1, QStringLiteral("2"), QStringLiteral("2"));
    enter(7, 2, QStringLiteral("1"), QStringLiteral("1"));
    rows[0][1] = QStringLiteral("45");
    rows[4][2] = QStringLiteral("2");
    rows[6][3] = QStringLiteral("1");
    expectGrid(rows);
    click(QStringLiteral("cmdPosiSaveFile"));
    saveAs(text(407), QStringLiteral("mended"));
    waitText(QStringLiteral("lblFileName"), QStringLiteral("mended"));
    waitReady(QStringLiteral("cmdPosiRead"));
    leave(); // everything is saved: nobody asks
}

} // namespace e2e
