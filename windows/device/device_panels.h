#pragma once

#include "setup/device_form.h"

#include <QWidget>
#include <array>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QDialog;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace qdw8 {

/// The four axes of a device window, side by side. It shows a form and hands the user's edits to
/// the form's routines; it holds nothing of its own.
class DevicePanels : public QWidget {
public:
    DevicePanels(DeviceForm& form, QWidget* parent);
    ~DevicePanels() override;

    /// Shows the form again.
    void showForm();
    /// Takes over what was typed into a list and not yet left.
    void takeTyped();
    /// The form hears of no list any more: the window is left without its edits.
    void letGo();
    /// Axis and caption as accessible names; after the window's texts have come in.
    void nameControls();

private:
    struct AxisControls {
        QGroupBox* frame = nullptr;
        QCheckBox* chkAxisEnable = nullptr;
        QWidget* PictureAxis = nullptr;
        std::array<QRadioButton*, 2> optQdSelect{};
        std::array<QLabel*, 3> captions{};
        QComboBox* comboDeviceSize = nullptr;
        QComboBox* comboDeviceSpeed = nullptr;
        QComboBox* comboDeviceStroke = nullptr;
        QCheckBox* chkDevPgUse = nullptr;
        QCheckBox* chkDevVsiyou = nullptr;
        QCheckBox* chkNewOrOld = nullptr;
    };
    using Edit = void (*)(DeviceForm&, std::size_t, const std::string&);

    void makeAxis(std::size_t axis);
    void makeFamilies(std::size_t axis, QBoxLayout& layout);
    void makeLists(std::size_t axis, QBoxLayout& layout);
    void makeBoxes(std::size_t axis, QBoxLayout& layout);
    QComboBox* makeList(const char* name, std::size_t axis, int characters, Edit edit);
    QCheckBox* makeBox(const char* name, std::size_t axis, std::int16_t tag, QWidget* parent);
    void edited(QComboBox& list, std::size_t axis, Edit edit);

    DeviceForm& form;
    std::array<AxisControls, kAxes> axes;
};

/// What both windows have around the axes: what to do, and the caution when the table is shown in
/// mm. The buttons go to the returned row.
QBoxLayout* FillDeviceWindow(QDialog& window, DevicePanels& panels, bool caution);
/// A button of that row.
QPushButton* AddDeviceButton(QBoxLayout& row, const char* name, std::int16_t tag);

} // namespace qdw8
