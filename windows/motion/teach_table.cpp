#include "windows/motion/teach_table.h"

#include "motion/jog_position.h"
#include "motion/teach_chart.h"
#include "position/flex_grid.h"
#include "position/posi_table.h"
#include "windows/controls/texts.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QHeaderView>
#include <QScrollBar>

namespace qdw8 {
namespace {

constexpr std::int16_t kAxisHead = 220; ///< of AXIS 1
constexpr std::int16_t kPulses = 2221;
constexpr std::int16_t kMm = 2222;
constexpr int kLeastRows = 8;
constexpr int kCellDigits = 9;
constexpr int kCellMargin = 3;

QColor ColourOf(CellColour colour) {
    const Rgb rgb = RgbOf(colour);
    return {rgb.red, rgb.green, rgb.blue};
}

/// Rows of the chart while the window is open; the grid can't change meanwhile.
int RowsOffered() {
    return lblPosiNo == 0 ? 0 : GridLast - GridFirst + 1;
}

} // namespace

class TeachTableModel : public QAbstractTableModel {
public:
    explicit TeachTableModel(QObject* parent) : QAbstractTableModel(parent), rows(RowsOffered()) {}

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : rows; }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : kAxes;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const auto axis = static_cast<std::size_t>(index.column());
        const bool off = IsSet(AxisOff[axis]);
        switch (role) {
        case Qt::DisplayRole: {
            const auto found =
                TeachChart().find(static_cast<std::int16_t>(index.row() + GridFirst));
            return found == TeachChart().end() || !found->second[axis]
                       ? QString()
                       : QString::fromStdString(JogPosText(axis, *found->second[axis]));
        }
        case Qt::TextAlignmentRole: return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        case Qt::BackgroundRole:
            return off             ? ColourOf(CellColour::OffAxis)
                   : axis % 2 == 1 ? ColourOf(CellColour::Band)
                                   : QVariant();
        case Qt::ForegroundRole: return off || axis % 2 == 1 ? QColor(Qt::black) : QVariant();
        default: return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) {
            return {};
        }
        if (orientation == Qt::Vertical) {
            return QString::number(section + GridFirst);
        }
        return QString(ResQText(static_cast<std::int16_t>(kAxisHead + section)) +
                       QLatin1Char(role == Qt::DisplayRole ? '\n' : ' ') +
                       ResQText(TeachesInMm() ? kMm : kPulses));
    }

    void tellAll() {
        emit headerDataChanged(Qt::Horizontal, 0, kAxes - 1); // the unit
        if (rows > 0) {
            emit dataChanged(index(0, 0), index(rows - 1, kAxes - 1));
        }
    }

private:
    int rows;
};

TeachTable::TeachTable(const std::function<void(int)>& choose, QWidget* parent)
    : QTableView(parent), cells(new TeachTableModel(this)) {
    setObjectName(QStringLiteral("flgdJOGPosi"));
    setModel(cells);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    const auto digits = [this](int count) {
        return fontMetrics().horizontalAdvance(QLatin1Char('0')) * count + 2 * kCellMargin;
    };
    const int line = fontMetrics().height() + kCellMargin;
    QHeaderView& numbers = *verticalHeader();
    numbers.setSectionResizeMode(QHeaderView::Fixed);
    numbers.setDefaultSectionSize(line);
    numbers.setDefaultAlignment(Qt::AlignCenter);
    numbers.setFixedWidth(digits(4));
    QHeaderView& axes = *horizontalHeader();
    axes.setSectionResizeMode(QHeaderView::Fixed);
    axes.setDefaultSectionSize(digits(kCellDigits));
    axes.setSectionsClickable(false);
    setFixedWidth(kAxes * axes.defaultSectionSize() + numbers.width() +
                  verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
    setMinimumHeight(axes.sizeHint().height() + kLeastRows * line + 2 * frameWidth());
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [choose](const QModelIndex& current) { choose(current.row() + GridFirst); });
}

void TeachTable::refresh() {
    cells->tellAll();
    const QModelIndex chosen = cells->index(lblPosiNo - GridFirst, 0);
    if (chosen.isValid() && currentIndex().row() != chosen.row()) {
        selectRow(chosen.row());
    }
}

void TeachTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    scrollToTop(); // what it showed of the chosen row was for another size
    scrollTo(currentIndex());
}

} // namespace qdw8
