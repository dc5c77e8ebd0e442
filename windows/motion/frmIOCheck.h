#pragma once

#include "motion/io_lamps.h"
#include "windows/controls/kept_focus.h"

#include <QDialog>
#include <array>

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace qdw8 {

class LampButton;
class PictureLabel;

/// The inputs and outputs of the controller as lamps. It shows what motion/io_check.h holds.
class frmIOCheck : public QDialog {
public:
    explicit frmIOCheck(QWidget* parent = nullptr);

    /// Looks at the lamps, the buttons and the text again; goes when it is to go.
    void showState();

    /// By Escape and by the title bar too: monitoring is stopped first.
    void reject() override;

private:
    struct InputLamp {
        PictureLabel* white = nullptr;
        PictureLabel* coloured = nullptr;
    };

    QGroupBox* makeInputs();
    QGroupBox* makeOutputs();
    QWidget* makeFoot();
    InputLamp makeInput(const IoLamp& lamp, QGroupBox& box);
    void showLamps();

    std::array<InputLamp, kInputLamps.size()> inputs{};
    std::array<LampButton*, kOutputLamps.size()> outputs{};
    QLabel* text = nullptr;
    QCheckBox* ignore = nullptr;
    QPushButton* monitor = nullptr;
    KeptFocus focus;
    bool showsStop = false;
};

} // namespace qdw8
