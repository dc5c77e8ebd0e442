#pragma once

#include "setup/device_form.h"

#include <QDialog>

namespace qdw8 {

class DevicePanels;

/// The choice of the actuators on the PC alone.
class frmDevice2 : public QDialog {
public:
    explicit frmDevice2(QWidget* parent = nullptr);

    void accept() override;
    void reject() override;

private:
    DeviceForm form;
    DevicePanels* panels = nullptr;
};

/// Shows it over the middle of the parent and waits until it is left.
void ShowDevice2(QWidget* parent);

} // namespace qdw8
