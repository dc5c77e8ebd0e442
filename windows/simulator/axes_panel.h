#pragma once

#include "simulator/look.h"

#include <QGroupBox>
#include <array>

class QLabel;

namespace qdk8 {

class Rail;

/// The four axes, all to one scale, with what the controller counts and knows of each.
class AxesPanel : public QGroupBox {
public:
    explicit AxesPanel(QWidget* parent);

    void show(const Look& look);

private:
    struct Row {
        QLabel* name = nullptr;
        QLabel* state = nullptr;
        QLabel* place = nullptr;
        Rail* rail = nullptr;
    };
    Row makeRow(int axis);
    static void showTexts(const Row& row, const AxisLook& axis, bool powered);

    std::array<Row, kAxisCountMax> rows;
};

} // namespace qdk8
