#include "windows/dialogs/frmSelectPosiNo2.h"

#include "windows/controls/load_form_resources.h"

#include <QEvent>
#include <QLabel>
#include <QMargins>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kIndent = 24;

} // namespace

frmSelectPosiNo2::frmSelectPosiNo2(QWidget* parent) : QDialog(parent) {
    QVBoxLayout* layout = BeginRangeDialog(*this, "frmSelectPosiNo2");
    const auto option = [this, layout](int index, std::int16_t tag) {
        auto* made = new QRadioButton(this);
        made->setObjectName(QStringLiteral("optSelectPosiNo(%1)").arg(index));
        SetNumbers(*made, tag);
        layout->addWidget(made);
        connect(made, &QRadioButton::toggled, this, [this] { showOptions(); });
        return made;
    };
    allData = option(0, 1603);
    selectedRange = option(1, 1604);

    range = MakeRangeControls(*this, {kIndent, 0, 0, kRangeSpacing}, ReadRangePreset());
    connect(range.cmdOk, &QPushButton::clicked, this, [this] { accept(); });

    RangeDialogOpened();
    LoadRangeResources(*this, range);
    allData->setChecked(true);
    allData->setFocus();
    showOptions();
}

void frmSelectPosiNo2::showOptions() {
    const bool selected = selectedRange->isChecked();
    for (NumberField* box : {range.txtStartPosiNo, range.txtEndPosiNo}) {
        if (box == nullptr) {
            return; // still being built
        }
        // A disabled box takes the colour of the window, so that it is plainly not to be filled.
        QPalette colours;
        if (!selected) {
            colours.setColor(QPalette::Base, palette().color(QPalette::Window));
        }
        box->setPalette(colours);
        box->setEnabled(selected);
    }
    range.lblStartPosiMoji->setEnabled(selected);
    range.lblEndPosiMoji->setEnabled(selected);
}

void frmSelectPosiNo2::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        showOptions();
    }
}

void frmSelectPosiNo2::accept() {
    if (TakeReadRange(allData->isChecked(), range.texts())) {
        QDialog::accept();
    } else {
        range.txtStartPosiNo->setFocus(); // the numbers are to be typed again
    }
}

void frmSelectPosiNo2::reject() {
    RangeDialogCancelled();
    QDialog::reject();
}

void ShowSelectPosiNo2(QWidget* parent) {
    frmSelectPosiNo2(parent).exec();
}

} // namespace qdw8
