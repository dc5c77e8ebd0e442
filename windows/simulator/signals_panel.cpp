#include "windows/simulator/signals_panel.h"

#include "windows/simulator/lamp.h"
#include "windows/simulator/texts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>
#include <utility>

namespace qdk8 {
namespace {

constexpr int kInset = 6;

/// By their place in the word, from the first bit of the first digit on.
constexpr std::array<const char*, 24> kInputs{
    "Stb",  "Stop", "Grp",  "Res",  "Exp4",    "Exp3",    "Exp2",    "Exp1",
    "P800", "P400", "P200", "P100", "P80",     "P40",     "P20",     "P10",
    "P8",   "P4",   "P2",   "P1",   "HomeLs4", "HomeLs3", "HomeLs2", "HomeLs1"};
constexpr std::array<const char*, 24> kOutputs{
    "",    "Alm", "Rdy", "Inp", "Exp4", "Exp3", "Exp2", "Exp1", "P800", "P400", "P200", "P100",
    "P80", "P40", "P20", "P10", "P8",   "P4",   "P2",   "P1",   "",     "",     "Out2", "Out1"};

constexpr std::uint32_t BitOf(std::size_t place) {
    return 0x800000U >> place;
}

/// A digit of the word is a row, its bits are the columns.
QGridLayout* GridIn(QGroupBox& box) {
    auto* grid = new QGridLayout(&box);
    grid->setVerticalSpacing(1);
    grid->setContentsMargins(kInset, kInset, kInset, kInset);
    for (int column = 0; column < 4; ++column) {
        grid->setColumnStretch(column, 1);
    }
    return grid;
}

void Place(QGridLayout& grid, QWidget* control, std::size_t place) {
    grid.addWidget(control, static_cast<int>(place / 4), static_cast<int>(place % 4));
}

} // namespace

SignalsPanel::SignalsPanel(TellSimulator teller, QWidget* parent)
    : QWidget(parent), tell(std::move(teller)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kInset, kInset, kInset, kInset);
    layout->setSpacing(kInset);
    layout->addWidget(makeInputs());
    layout->addWidget(makeOutputs());
    layout->addStretch(1);
}

QWidget* SignalsPanel::makeInputs() {
    auto* box = new QGroupBox(this);
    SetText(*box, "inputs");
    SetTip(*box, "inputs-tip");
    QGridLayout* grid = GridIn(*box);
    for (std::size_t place = 0; place < inputs.size(); ++place) {
        auto* input = new QCheckBox(kInputs[place], box);
        input->setObjectName(QString("input") + kInputs[place]);
        const QString bit = QString::number(BitOf(place), 16).toUpper().rightJustified(6, '0');
        connect(input, &QCheckBox::clicked, this,
                [this, bit](bool on) { tell("input " + bit + (on ? " on" : " off")); });
        Place(*grid, input, place);
        inputs[place] = input;
    }
    return box;
}

QWidget* SignalsPanel::makeOutputs() {
    auto* box = new QGroupBox(this);
    SetText(*box, "outputs");
    SetTip(*box, "outputs-tip");
    QGridLayout* grid = GridIn(*box);
    for (std::size_t place = 0; place < outputs.size(); ++place) {
        const bool named = *kOutputs[place] != '\0';
        auto* output = new Lamp(named ? kOutputs[place] : "-", place == 1, box);
        output->setObjectName(QString("output") + kOutputs[place]);
        if (!named) {
            SetTip(*output, "unnamed-tip");
        }
        Place(*grid, output, place);
        outputs[place] = output;
    }
    return box;
}

void SignalsPanel::show(const Look& look) {
    for (std::size_t place = 0; place < inputs.size(); ++place) {
        inputs[place]->setChecked((look.inputs & BitOf(place)) != 0);
        outputs[place]->light(look.powered && (look.outputs & BitOf(place)) != 0);
    }
}

} // namespace qdk8
