#include "hands.h"
#include "words.h"

#include <QAbstractItemModel>
#include <QFile>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

namespace e2e {

namespace {

const QString kGrid = "flgdData";
const QString kEditBox = "flgdDataEdit";

/// What the grid should show: the number of the position, then the cells. Of the user's thread.
QVector<QStringList> wanted;

/// Column 0 is in front of the cells and tells the line.
const QStringList kColumns = QString("LINE VEL1 ACC1 WAY1 POS1 VEL2 ACC2 WAY2 POS2 "
                                     "VEL3 ACC3 WAY3 POS3 VEL4 ACC4 WAY4 POS4 "
                                     "ITPL OUT SM COMMENT")
                                 .split(u' ');

/// A cell as a story writes it: "12:POS1" is the target of AXIS 1 in position 12, "12" its line.
struct Cell {
    int position;
    int column; ///< counted from 0, -1 the line
};

Cell CellOf(const QString& word) {
    const qsizetype column = word.contains(u':') ? kColumns.indexOf(word.section(u':', 1)) : 0;
    if (word.section(u':', 0, 0).toInt() < 1 || column < 0) {
        Fail(word + " is no cell");
    }
    return {word.section(u':', 0, 0).toInt(), static_cast<int>(column) - 1};
}

// ---- on the program's thread

const QAbstractItemModel* Model(const QString& table) {
    const auto* view = qobject_cast<QTableView*>(Seen(table));
    static const QStandardItemModel none;
    return view == nullptr ? &none : view->model();
}

/// The cells of a table, the head of the line in front.
QStringList Rows(const QString& table) {
    QStringList rows;
    const QAbstractItemModel* model = Model(table);
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells{model->headerData(row, Qt::Vertical).toString()};
        for (int column = 0; column < model->columnCount(); ++column) {
            cells += model->index(row, column).data().toString();
        }
        rows += cells.join(u'|');
    }
    return rows;
}

QModelIndex IndexOf(const Cell& cell) {
    const QAbstractItemModel* model = Model(kGrid);
    const int first = model->headerData(0, Qt::Vertical).toInt();
    return model->index(cell.position - first, qMax(cell.column, 0));
}

/// The cell, or the number in front of its line.
Spot SpotIn(const Cell& cell) {
    const auto* view = qobject_cast<QTableView*>(Ready(kGrid));
    if (view == nullptr) {
        return {};
    }
    QRect place = view->visualRect(IndexOf(cell));
    QWidget* area = view->viewport();
    if (cell.column < 0) {
        area = view->verticalHeader()->viewport();
        place.setRect(0, place.y(), area->width(), place.height());
    }
    const bool inView = !place.isEmpty() && area->rect().contains(place.center());
    return inView ? Spot{area, place.center()} : Spot{};
}

/// The cursor stands on the cell and no edit box is open; of a line, it is selected.
bool IsAt(const Cell& cell) {
    const auto* view = qobject_cast<QTableView*>(Seen(kGrid));
    if (view == nullptr || cell.column < 0) {
        return view != nullptr && view->selectionModel()->isRowSelected(IndexOf(cell).row());
    }
    return view->hasFocus() && Seen(kEditBox) == nullptr && view->currentIndex() == IndexOf(cell);
}

// ---- on the user's

void ExpectCell(const Cell& cell, const QString& text) {
    Expect([&] { return IndexOf(cell).data().toString(); }, text);
}

void WaitAt(const Cell& cell) {
    WaitFor([&] { return IsAt(cell); });
}

/// FROM or FROM TO: a cell or line, or a selection to a second one with Shift.
void GoTo(Told told) {
    for (qsizetype i = 0; i < told.size(); ++i) {
        const Cell cell = CellOf(told[i]);
        ClickAt([cell] { return SpotIn(cell); }, Boxes::AreFailures,
                i == 0 ? Held::Nothing : Held::Shift);
        WaitAt(cell);
    }
}

/// CELL TEXT SHOWN: types over the cell, which then reads so.
void Enter(Told told) {
    const Cell cell = CellOf(told.value(0));
    GoTo({told[0]});
    KeyIn(told.value(1));
    Press({"Return"});
    ExpectCell(cell, told.value(2));
    WaitFor([] { return Seen(kEditBox) == nullptr; });
    for (QStringList& row : wanted) {
        if (row[0].toInt() == cell.position) {
            row[cell.column + 1] = told.value(2);
        }
    }
}

/// In thousandths of a mm with whole numbers; with the simulator's actuators, lead in mm and pulses
/// per revolution, no value lies halfway between two.
QString Millimetres(int pulses, int axis) {
    constexpr int kLeads[] = {8, 2, 2, 8};
    constexpr int kPulses[] = {400, 400, 400, 192};
    const int thousandths = (2 * pulses * kLeads[axis] * 1000 / kPulses[axis] + 1) / 2;
    return QString::number(thousandths / 1000.0, 'f', 3).rightJustified(7);
}

/// FIRST LAST [pulses]: what the controller holds there, told by controller.qdd behind three lines,
/// is what the grid should show.
void WantPositions(Told told) {
    const int first = told.value(0).toInt();
    const QByteArrayList lines = ContentOf(STORIES_FOLDER "/controller.qdd").split('\n');
    wanted.clear();
    for (const QByteArray& line : lines.mid(first + 2, told.value(1).toInt() - first + 1)) {
        QStringList cells = QString::fromLatin1(line).remove(u'"').split(u',');
        for (int i = 0; i < cells.size(); ++i) {
            const bool isTarget = i <= 16 && i % 4 == 0 && i > 0;
            cells[i] = isTarget && told.size() < 3 ? Millimetres(cells[i].toInt(), i / 4 - 1)
                                                   : cells[i].trimmed();
        }
        wanted += cells;
    }
}

void ExpectGrid() {
    QStringList rows;
    for (const QStringList& row : wanted) {
        rows += row.join(u'|');
    }
    Expect([] { return Rows(kGrid).join(u'\n'); }, rows.join(u'\n'));
}

/// COLUMN TEXT
void ExpectHead(Told told) {
    const int column = static_cast<int>(kColumns.indexOf(told.value(0))) - 1;
    Expect([&] { return Model(kGrid)->headerData(column, Qt::Horizontal).toString(); },
           told.value(1));
}

/// CELL...: what the result window of a check or a verify marks.
void ExpectResults(Told told) {
    const auto look = [] {
        QStringList marked;
        for (const QString& row : Rows("flgdSyogoKekka")) {
            const QStringList cells = row.split(u'|').mid(1);
            for (qsizetype column = 1; column < cells.size(); ++column) {
                if (cells[column] == "X") {
                    marked += cells[0] + u':' + kColumns[column];
                }
            }
        }
        return marked.join(u' ');
    };
    Expect(look, told.join(u' '));
}

} // namespace

Words GridWords() {
    return {
        {"cell", GoTo},
        {"at", [](Told told) { WaitAt(CellOf(told.value(0))); }},
        {"enter", Enter},
        {"reads", [](Told told) { ExpectCell(CellOf(told.value(0)), told.value(1)); }},
        {"want", WantPositions},
        {"grid", [](Told) { ExpectGrid(); }},
        {"head", ExpectHead},
        {"results", ExpectResults},
    };
}

} // namespace e2e
