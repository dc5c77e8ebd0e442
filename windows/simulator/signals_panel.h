#pragma once

#include "simulator/look.h"

#include <QString>
#include <QWidget>
#include <array>
#include <functional>

class QCheckBox;

namespace qdk8 {

class Lamp;

/// Gives an order of the control input to the simulator.
using TellSimulator = std::function<void(const QString& order)>;

/// The 24 inputs, which a click switches, and the 24 outputs.
class SignalsPanel : public QWidget {
public:
    SignalsPanel(TellSimulator teller, QWidget* parent);

    void show(const Look& look);

private:
    QWidget* makeInputs();
    QWidget* makeOutputs();

    TellSimulator tell;
    std::array<QCheckBox*, 24> inputs{};
    std::array<Lamp*, 24> outputs{};
};

} // namespace qdk8
