#pragma once

#include "setup/device_form.h"

#include <QDialog>
#include <memory>

namespace qdw8 {

class DevicePanels;

/// The choice of the actuators on the PC alone.
class frmDevice2 : public QDialog {
public:
    explicit frmDevice2(QWidget* parent = nullptr);
    ~frmDevice2() override;

    void accept() override;
    void reject() override;

private:
    DeviceForm form;
    std::unique_ptr<DevicePanels> panels; ///< behind the form, and so gone before it
};

/// Shows it over the middle of the parent and waits until it is left.
void ShowDevice2(QWidget* parent);

} // namespace qdw8
