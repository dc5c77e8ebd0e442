#pragma once

#include "parameter/stroke_calculator.h"

#include <QDialog>
#include <array>
#include <optional>

class QGridLayout;
class QLabel;
class QLayout;
class QRadioButton;

namespace qdw8 {

class KeyField;

/// The stroke calculator.
class frmDevice : public QDialog {
public:
    explicit frmDevice(QWidget* parent = nullptr);
    ~frmDevice() override;

    std::optional<ParaPlace> filled; ///< the field to go on in, once a result was entered

private:
    void makeFields(QGridLayout& grid);
    KeyField* makeField(const char* name, StrokeField field, std::string StrokeForm::*text,
                        std::size_t length, std::int16_t tip);
    void makeOptions(QLayout& layout, const char* name, std::int16_t firstTag, std::size_t count,
                     std::size_t StrokeForm::*chosen);
    void calculate();
    void input();
    void showForm();

    StrokeForm form;
    KeyField* txtStrokeTyo = nullptr;
    KeyField* txtRido = nullptr;
    QLabel* lblStrokePulse = nullptr;
    std::array<QRadioButton*, kAxes> optInputSaki{};
};

/// The calculator as a modal window; the field of the parameter window to go on in, nothing when
/// nothing was entered.
std::optional<ParaPlace> AskStrokeCalculator(QWidget* parent);

} // namespace qdw8
