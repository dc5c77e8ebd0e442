#include "windows/device/frmDevice3.h"

#include "setup/detail_edit.h"
#include "setup/device_set.h"
#include "setup/device_write.h"
#include "windows/controls/load_form_resources.h"
#include "windows/device/device_panels.h"

#include <QBoxLayout>
#include <QPushButton>

namespace qdw8 {

frmDevice3::frmDevice3(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmDevice3"));
    OpenDevice3(form);
    panels = std::make_unique<DevicePanels>(form, this);
    QBoxLayout* buttons = FillDeviceWindow(*this, *panels, form.cautionShown);
    cmdPrmCtWrite = AddDeviceButton(*buttons, "cmdPrmCtWrite", 1503);
    cmdPrmCtWrite->setAutoDefault(false);
    cmdSyosai = AddDeviceButton(*buttons, "cmdSyosai", 1502);
    buttons->addStretch();
    cmdDeviceSet = AddDeviceButton(*buttons, "cmdDeviceSet", 1403);
    cmdDeviceSet->setDefault(true);
    cmdDeviceCancel = AddDeviceButton(*buttons, "cmdDeviceCancel", 1404);
    connect(cmdPrmCtWrite, &QPushButton::clicked, this, [this] { write(); });
    connect(cmdSyosai, &QPushButton::clicked, this, [this] { editDetails(); });
    connect(cmdDeviceSet, &QPushButton::clicked, this, [this] { accept(); });
    connect(cmdDeviceCancel, &QPushButton::clicked, this, [this] { reject(); });
    LoadFormResources(*this);
    panels->nameControls();
    showCommands();
}

void frmDevice3::showCommands() {
    panels->setEnabled(form.commandsEnabled);
    for (QPushButton* command : {cmdSyosai, cmdDeviceSet, cmdDeviceCancel, cmdPrmCtWrite}) {
        command->setEnabled(form.commandsEnabled);
    }
}

void frmDevice3::editDetails() {
    panels->takeTyped();
    cmdSyosai_Click(form);
    QDialog::accept();
}

void frmDevice3::write() {
    panels->takeTyped();
    panels->showForm();
    cmdPrmCtWrite_Click(form, [this] { showCommands(); });
    panels->showForm();
    // Not on a button: a key that was meant for a box must not send it all again.
    panels->setFocus();
}

frmDevice3::~frmDevice3() = default;

void frmDevice3::accept() {
    if (form.commandsEnabled) {
        panels->takeTyped();
        cmdDeviceSet3_Click(form);
        QDialog::accept();
    }
}

void frmDevice3::reject() {
    if (CancelDevice3(form)) {
        panels->letGo(); // a list that loses the focus now would take back what was put back
        QDialog::reject();
    }
}

void ShowDevice3(QWidget* parent) {
    frmDevice3(parent).exec();
    Device3Closed();
}

} // namespace qdw8
