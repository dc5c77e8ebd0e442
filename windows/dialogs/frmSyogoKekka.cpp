#include "windows/dialogs/frmSyogoKekka.h"

#include "platform/qt/kept_places.h"
#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/grid_cursor.h"
#include "position/posi_table.h"
#include "windows/controls/beside.h"
#include "windows/controls/group_header.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/refused_field.h"
#include "windows/controls/texts.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace qdw8 {
namespace {

constexpr int kColumns = 20; ///< the position number and table columns 0 to 18
constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kOffset = 33; ///< that the screen shows around it
constexpr int kCellPadding = 6;

/// The axis of a column of the window, or -1 for the number and the columns common to the row.
int AxisOfColumn(int column) {
    const int tableColumn = column - 1;
    return tableColumn >= 0 && tableColumn < kItpl ? tableColumn / kAxisColumns : -1;
}

bool IsOff(int column) {
    const int axis = AxisOfColumn(column);
    return axis >= 0 && IsSet(AxisOff[static_cast<std::size_t>(axis)]);
}

QString Label(int column) {
    if (column == 0) {
        return ResQText(248);
    }
    const int axis = AxisOfColumn(column);
    if (axis < 0) {
        return ResQText(static_cast<std::int16_t>(231 + column - 1 - kItpl));
    }
    const int item = (column - 1) % kAxisColumns;
    return ResQText(static_cast<std::int16_t>(225 + item)) + QString::number(axis + 1);
}

QString Group(int column) {
    const int axis = AxisOfColumn(column);
    return ResQText(static_cast<std::int16_t>(axis < 0 ? 224 : 220 + axis));
}

class ResultModel : public QAbstractTableModel {
public:
    explicit ResultModel(QObject* parent) : QAbstractTableModel(parent), rows(ResultRows()) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : kColumns;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const ResultRow& row = rows[static_cast<std::size_t>(index.row())];
        const bool number = index.column() == 0;
        const bool failed =
            !number && row.failed.test(static_cast<std::size_t>(index.column() - 1));
        switch (role) {
        case Qt::DisplayRole:
            return number ? QString::number(row.position)
                          : QString(QLatin1Char(failed ? 'X' : 'O'));
        case Qt::TextAlignmentRole: return Qt::AlignCenter;
        case Qt::BackgroundRole: return failed ? QColor(kRefusedColour) : QVariant();
        case Qt::ForegroundRole: return failed ? QColor(Qt::black) : QVariant();
        default: return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
            return Label(section);
        }
        if (orientation == Qt::Horizontal && role == GroupHeader::kGroupRole) {
            return Group(section);
        }
        if (orientation == Qt::Horizontal && role == Qt::AccessibleTextRole) {
            return section == 0 ? Label(0)
                                : QString(Group(section) + QLatin1Char(' ') + Label(section));
        }
        return {};
    }

    /// Position and table column that a cell of the window stands for; its number stands for the
    /// first column that failed.
    std::pair<int, int> cellAt(const QModelIndex& index) const {
        const ResultRow& row = rows[static_cast<std::size_t>(index.row())];
        int column = index.column() - 1;
        for (std::size_t failed = 0; column < 0; ++failed) {
            column = row.failed.test(failed) ? static_cast<int>(failed) : -1;
        }
        return {row.position, column};
    }

private:
    std::vector<ResultRow> rows;
};

} // namespace

frmSyogoKekka::frmSyogoKekka(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSyogoKekka"));
    const bool verify = IsSet(SyogoMode);
    SetNumbers(*this, verify ? 2301 : 2302);

    auto* text = new QLabel(this);
    text->setObjectName(QStringLiteral("lblSyogoKekka"));
    text->setWordWrap(true);
    SetNumbers(*text, verify ? 2303 : 2304);

    table = new QTableView(this);
    table->setObjectName(QStringLiteral("flgdSyogoKekka"));
    table->setModel(new ResultModel(table));
    table->setHorizontalHeader(
        new GroupHeader({{1, 4}, {5, 8}, {9, 12}, {13, 16}, {17, 19}}, table));
    table->horizontalHeader()->setSectionsClickable(false);
    table->horizontalHeader()->setMinimumSectionSize(1);
    table->verticalHeader()->hide();
    table->verticalHeader()->setMinimumSectionSize(fontMetrics().height());
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kCellPadding);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setTabKeyNavigation(false);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->viewport()->installEventFilter(this);
    for (int column = 0; column < kColumns; ++column) {
        table->setColumnHidden(column, IsOff(column));
    }

    auto* close = new QPushButton(this);
    close->setObjectName(QStringLiteral("cmdCloseSyogokekka"));
    close->setDefault(true);
    SetNumbers(*close, 2202);
    connect(close, &QPushButton::clicked, this, [this] { hide(); });
    connect(table, &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
        hide();
        const auto [position, column] = static_cast<ResultModel*>(table->model())->cellAt(cell);
        GoToCell(position - GridFirst + kGridHeadRows, column + 1);
    });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->addWidget(text);
    layout->addWidget(table, 1);
    layout->addLayout(buttons);
    LoadFormResources(*this);
    table->setAccessibleName(windowTitle());
    close->setFocus();

    QSize size = KeepSize(*this, {940, 480});
    if (const QScreen* on = screen()) {
        size = size.boundedTo(on->availableSize() - QSize(2 * kOffset, 2 * kOffset));
    }
    resize(size);
    PutOnCorner(*this);
}

bool frmSyogoKekka::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        fitColumns();
    }
    return QDialog::eventFilter(watched, event);
}

void frmSyogoKekka::fitColumns() {
    const QFontMetrics font = table->horizontalHeader()->fontMetrics();
    const int number = font.horizontalAdvance(QStringLiteral("0000")) + kCellPadding;
    int shown = 0;
    int least = 0;
    for (int column = 1; column < kColumns; ++column) {
        if (!table->isColumnHidden(column)) {
            ++shown;
            least = std::max(least, font.horizontalAdvance(Label(column)) + kCellPadding);
        }
    }
    // What the division leaves over goes to the numbers, so that no gap stays at the right.
    const int share = std::max((table->viewport()->width() - number) / std::max(shown, 1), least);
    table->setColumnWidth(0, std::max(table->viewport()->width() - shown * share, number));
    for (int column = 1; column < kColumns; ++column) {
        if (!table->isColumnHidden(column)) {
            table->setColumnWidth(column, share);
        }
    }
}

void ShowSyogoKekka(QWidget* parent) {
    frmSyogoKekka(parent).exec();
}

} // namespace qdw8
