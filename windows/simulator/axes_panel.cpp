#include "windows/simulator/axes_panel.h"

#include "windows/simulator/rail.h"
#include "windows/simulator/texts.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

namespace qdk8 {
namespace {

constexpr int kInset = 8;

QString Millimetres(double pulses, const AxisLook& axis, int decimals) {
    return QString::number(pulses / axis.pulsesPerMm, 'f', decimals);
}

void Show(QLabel& label, const QString& text) {
    if (label.text() != text) {
        label.setText(text);
    }
}

} // namespace

AxesPanel::AxesPanel(QWidget* parent) : QGroupBox(parent) {
    SetText(*this, "axes");
    SetTip(*this, "axis-tip");
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(2);
    layout->setContentsMargins(kInset, kInset, kInset, kInset);
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        rows[static_cast<std::size_t>(axis)] = makeRow(axis);
    }
}

AxesPanel::Row AxesPanel::makeRow(int axis) {
    Row row{new QLabel(this), new QLabel(this), new QLabel(this), new Rail(this)};
    QFont bold = font();
    bold.setBold(true);
    row.name->setFont(bold);
    const QString number = QString::number(axis + 1);
    row.state->setObjectName("state" + number);
    row.place->setObjectName("place" + number);
    row.place->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(1);
    grid->setHorizontalSpacing(kInset);
    grid->addWidget(row.name, 0, 0);
    grid->addWidget(row.state, 0, 1);
    grid->addWidget(row.place, 0, 2);
    grid->addWidget(row.rail, 1, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    static_cast<QVBoxLayout*>(layout())->addLayout(grid);
    return row;
}

void AxesPanel::showTexts(const Row& row, const AxisLook& axis, bool powered) {
    if (!axis.used) {
        Show(*row.state, Text("unused"));
        Show(*row.place, {});
        return;
    }
    const QString known = Text(axis.homed ? "homed" : "not-homed");
    const QString way = Text(axis.moves ? "moves" : "stands");
    Show(*row.state, powered ? known + ", " + way : Text("off"));
    // What was counted is lost with the power.
    const QString counted =
        Text("place")
            .arg(axis.position)
            .arg(Millimetres(axis.position, axis, 3), Millimetres(axis.stroke, axis, 0));
    Show(*row.place, powered ? counted : QString());
}

void AxesPanel::show(const Look& look) {
    double longest = 1;
    for (const AxisLook& axis : look.axes) {
        longest = std::max(longest, axis.stroke / axis.pulsesPerMm);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Show(*rows[i].name, Text("axis").arg(i + 1));
        showTexts(rows[i], look.axes[i], look.powered);
        rows[i].rail->show(look.axes[i], longest, look.powered);
    }
}

} // namespace qdk8
