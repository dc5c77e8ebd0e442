#include "windows/dialogs/frmSelectPosiNo3.h"

#include "windows/controls/load_form_resources.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 8;

} // namespace

frmSelectPosiNo3::frmSelectPosiNo3(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSelectPosiNo3"));
    SetNumbers(*this, 1601);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    auto* text = new QLabel(this);
    text->setObjectName(QStringLiteral("lblSelectPosiNo"));
    SetNumbers(*text, 1602);
    layout->addWidget(text);
    auto* boxes = new QGridLayout;
    boxes->setContentsMargins(0, kSpacing, 0, kSpacing);
    boxes->setHorizontalSpacing(kSpacing * 2);
    layout->addLayout(boxes);
    range = MakeRangeControls(*this, *boxes, GridRangePreset());
    connect(range.cmdOk, &QPushButton::clicked, this, [this] { accept(); });

    RangeDialogOpened();
    LoadFormResources(*this);
    range.txtStartPosiNo->setAccessibleName(range.lblStartPosiMoji->text());
    range.txtEndPosiNo->setAccessibleName(range.lblEndPosiMoji->text());
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
