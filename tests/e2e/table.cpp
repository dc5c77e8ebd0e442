#include "table.h"

#include "hands.h"
#include "looking.h"
#include "user.h"

#include <QAbstractItemModel>
#include <QDeadlineTimer>
#include <QTableView>
#include <QThread>
#include <algorithm>

namespace e2e {

namespace {

const QString kGrid = QStringLiteral("flgdData");
const QString kEditBox = QStringLiteral("flgdDataEdit");

const QAbstractItemModel* gridModel() {
    const QTableView* view = table(kGrid);
    return view == nullptr ? nullptr : view->model();
}

/// The row of a position, or -1. On the program's thread.
int rowOf(int position) {
    const QAbstractItemModel* model = gridModel();
    for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
        if (model->headerData(row, Qt::Vertical).toInt() == position) {
            return row;
        }
    }
    return -1;
}

QString cellName(int position, int column) {
    return QStringLiteral("column %1 of position %2").arg(column).arg(position);
}

void clickCellAs(int position, int column, Held held) {
    clickAt(
        cellName(position, column),
        [position, column] { return spotOfCell(rowOf(position), column); }, Boxes::AreFailures,
        held);
}

void clickLineAs(int position, Held held) {
    clickAt(
        QStringLiteral("line %1").arg(position), [position] { return spotOfLine(rowOf(position)); },
        Boxes::AreFailures, held);
}

} // namespace

QVector<GridRow> grid() {
    return onGui([] {
        QVector<GridRow> rows;
        const QAbstractItemModel* model = gridModel();
        for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
            GridRow cells{model->headerData(row, Qt::Vertical).toString()};
            for (int column = 0; column < model->columnCount(); ++column) {
                cells += model->index(row, column).data().toString();
            }
            rows += cells;
        }
        return rows;
    });
}

QStringList gridHeads() {
    return onGui([] {
        QStringList heads;
        const QAbstractItemModel* model = gridModel();
        for (int column = 0; model != nullptr && column < model->columnCount(); ++column) {
            heads += model->headerData(column, Qt::Horizontal).toString();
        }
        return heads;
    });
}

void expectGrid(const QVector<GridRow>& wanted) {
    const QDeadlineTimer deadline(kPatience);
    QVector<GridRow> seen = grid();
    while (seen != wanted && !deadline.hasExpired()) {
        QThread::msleep(10);
        seen = grid();
    }
    if (seen.size() != wanted.size()) {
        fail(QStringLiteral("the grid has %1 rows and not %2").arg(seen.size()).arg(wanted.size()));
    }
    for (qsizetype row = 0; row < seen.size(); ++row) {
        expect(QStringLiteral("row %1 of the grid").arg(row + 1), seen[row], wanted[row]);
    }
}

void waitCell(int position, int column, const QString& text) {
    waitFor(QStringLiteral("%1 to read \"%2\"").arg(cellName(position, column), text), [=] {
        const QAbstractItemModel* model = gridModel();
        return model != nullptr && model->index(rowOf(position), column).data().toString() == text;
    });
}

void waitCursor(int position, int column) {
    waitFor(QStringLiteral("the cursor in ") + cellName(position, column), [=] {
        const QTableView* view = table(kGrid);
        return view != nullptr && view->hasFocus() && seen(kEditBox) == nullptr &&
               view->currentIndex() == view->model()->index(rowOf(position), column);
    });
}

void clickCell(int position, int column) {
    clickCellAs(position, column, Held::Nothing);
    waitCursor(position, column);
}

void clickCellWithShift(int position, int column) {
    clickCellAs(position, column, Held::Shift);
    waitCursor(position, column);
}

namespace {

void waitLine(int position) {
    waitFor(QStringLiteral("line %1 to be selected").arg(position), [position] {
        const QTableView* view = table(kGrid);
        return view != nullptr && view->selectionModel()->isRowSelected(rowOf(position));
    });
}

} // namespace

void clickLine(int position) {
    clickLineAs(position, Held::Nothing);
    waitLine(position);
}

void clickLineWithShift(int position) {
    clickLineAs(position, Held::Shift);
    waitLine(position);
}

void enter(int position, int column, const QString& text, const QString& becomes) {
    clickCell(position, column);
    keyIn(text);
    press(QStringLiteral("Return"));
    waitCell(position, column, becomes);
    waitGone(kEditBox);
}

void enterRefused(int position, int column, const QString& text, const QString& old) {
    clickCell(position, column);
    keyIn(text);
    waitText(kEditBox, text);
    press(QStringLiteral("Return"));
    waitText(kEditBox, old);
    picture(QStringLiteral("refused"));
    press(QStringLiteral("Escape"));
    waitCursor(position, column);
}

void expectResults(bool verify, const QStringList& cells) {
    const QString window = QStringLiteral("frmSyogoKekka");
    waitReady(window);
    expect(QStringLiteral("the title"), textOf(window), text(verify ? 2301 : 2302));
    const QStringList marked = onGui([] {
        QStringList list;
        const QTableView* view = table(QStringLiteral("flgdSyogoKekka"));
        const QAbstractItemModel* model = view == nullptr ? nullptr : view->model();
        for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
            for (int column = 1; column < model->columnCount(); ++column) {
                if (model->index(row, column).data().toString() == QStringLiteral("X")) {
                    list += QStringLiteral("%1:%2")
                                .arg(model->index(row, 0).data().toString())
                                .arg(column - 1);
                }
            }
        }
        return list;
    });
    expect(QStringLiteral("the cells marked"), marked, cells);
    picture(verify ? QStringLiteral("different") : QStringLiteral("errors"));
    click(QStringLiteral("cmdCloseSyogokekka"));
    waitGone(window);
    waitReady(QStringLiteral("cmdPosiRead"));
}

} // namespace e2e
