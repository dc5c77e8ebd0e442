#include "windows/device/frmDevice2.h"

#include "setup/device_set.h"
#include "windows/controls/load_form_resources.h"
#include "windows/device/device_panels.h"

#include <QBoxLayout>
#include <QPushButton>

namespace qdw8 {

frmDevice2::frmDevice2(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmDevice2"));
    OpenDevice2(form);
    panels = std::make_unique<DevicePanels>(form, this);
    QBoxLayout* buttons = FillDeviceWindow(*this, *panels, form.cautionShown);
    buttons->addStretch();
    auto* set = AddDeviceButton(*buttons, "cmdDeviceSet", 1403);
    set->setDefault(true);
    auto* cancel = AddDeviceButton(*buttons, "cmdDeviceCancel", 1404);
    cancel->setEnabled(form.cancelShown);
    cancel->setVisible(form.cancelShown);
    connect(set, &QPushButton::clicked, this, [this] { accept(); });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    LoadFormResources(*this);
    panels->nameControls();
}

frmDevice2::~frmDevice2() = default;

void frmDevice2::accept() {
    panels->takeTyped();
    cmdDeviceSet2_Click(form);
    QDialog::accept();
}

void frmDevice2::reject() {
    if (CancelDevice2(form)) {
        panels->letGo(); // a list that loses the focus now would take back what was put back
        QDialog::reject();
    }
}

void ShowDevice2(QWidget* parent) {
    frmDevice2(parent).exec();
}

} // namespace qdw8
