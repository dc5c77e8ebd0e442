#include "windows/dialogs/frmSelectPosiNo3.h"

#include <QMargins>
#include <QPushButton>

namespace qdw8 {

frmSelectPosiNo3::frmSelectPosiNo3(QWidget* parent) : QDialog(parent) {
    BeginRangeDialog(*this, "frmSelectPosiNo3");
    range = MakeRangeControls(*this, {0, kRangeSpacing, 0, kRangeSpacing}, GridRangePreset());
    connect(range.cmdOk, &QPushButton::clicked, this, [this] { accept(); });

    RangeDialogOpened();
    LoadRangeResources(*this, range);
    range.txtStartPosiNo->setFocus();
}

void frmSelectPosiNo3::accept() {
    if (TakeGridRange(range.texts())) {
        QDialog::accept();
    } else {
        range.txtStartPosiNo->setFocus(); // the numbers are to be typed again
    }
}

void frmSelectPosiNo3::reject() {
    RangeDialogCancelled();
    QDialog::reject();
}

void ShowSelectPosiNo3(QWidget* parent) {
    frmSelectPosiNo3(parent).exec();
}

} // namespace qdw8
