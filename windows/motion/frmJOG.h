#pragma once

#include "app/Module1.h"
#include "motion/teaching.h"
#include "windows/controls/kept_focus.h"

#include <QDialog>
#include <array>

class QAbstractButton;
class QLabel;
class QPushButton;
class QRadioButton;

namespace qdw8 {

class Arrows;
class FieldLabel;
class HeldButton;
class TeachTable;

/// Teaching: moves the axes by hand and collects where they stand. It shows what motion/teaching.h
/// and motion/teach_chart.h hold. An axis moves for as long as its button is held.
class frmJOG : public QDialog {
public:
    explicit frmJOG(QWidget* parent = nullptr);
    ~frmJOG() override;

    /// Looks at the state, the positions, the chart and the buttons again; goes when it is to go.
    void showState();

    /// By Escape and by the title bar too: a stop that is due goes out first, and a chart that
    /// holds positions is asked about.
    void reject() override;

private:
    QLayout* makeHead();
    QWidget* makeSign();
    QWidget* makeOperation();
    QWidget* makeWays();
    QWidget* makeAxes();
    QWidget* makeChart();
    QWidget* makeFoot();
    QPushButton* makeButton(const char* name, std::int16_t tag, char letter, void (*click)());
    void showSign(const TeachingForm& form);
    void showChart();

    std::array<QRadioButton*, 4> ways{};
    std::array<QAbstractButton*, 2 * kAxes> axes{};
    std::array<FieldLabel*, kAxes> positions{};
    HeldButton* held = nullptr;
    QWidget* sign = nullptr;
    QLabel* head = nullptr;
    QLabel* signText = nullptr;
    std::array<QWidget*, 3> signPictures{};
    FieldLabel* speed = nullptr;
    FieldLabel* chosenRow = nullptr;
    Arrows* rows = nullptr;
    TeachTable* chart = nullptr;
    QPushButton* start = nullptr;
    QPushButton* complete = nullptr;
    QPushButton* take = nullptr;
    KeptFocus focus;
};

} // namespace qdw8
