#pragma once

#include "setup/device_form.h"

#include <QDialog>
#include <memory>

class QPushButton;

namespace qdw8 {

class DevicePanels;

/// The choice of the actuators that can be written into the controller at once.
class frmDevice3 : public QDialog {
public:
    explicit frmDevice3(QWidget* parent = nullptr);
    ~frmDevice3() override;

    void accept() override;
    void reject() override;

private:
    void showCommands();
    void editDetails();
    void write();

    DeviceForm form;
    std::unique_ptr<DevicePanels> panels; ///< behind the form, and so gone before it
    QPushButton* cmdDeviceSet = nullptr;
    QPushButton* cmdDeviceCancel = nullptr;
    QPushButton* cmdSyosai = nullptr;
    QPushButton* cmdPrmCtWrite = nullptr;
};

/// Shows it over the middle of the parent and waits until it is left.
void ShowDevice3(QWidget* parent);

} // namespace qdw8
