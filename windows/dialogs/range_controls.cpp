#include "windows/dialogs/range_controls.h"

#include "windows/controls/load_form_resources.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace qdw8 {

RangeTexts RangeControls::texts() const {
    return {txtStartPosiNo->text().toStdString(), txtEndPosiNo->text().toStdString()};
}

RangeControls MakeRangeControls(QDialog& dialog, QGridLayout& boxes, const RangeTexts& preset) {
    RangeControls made;
    const auto row = [&](int place, const char* labelName, std::int16_t tag, const char* boxName,
                         const std::string& text, QLabel*& label, NumberField*& box) {
        label = new QLabel(&dialog);
        label->setObjectName(QString::fromLatin1(labelName));
        SetNumbers(*label, tag);
        box = new NumberField(QString::fromLatin1(boxName), kPosiNoDigits, &dialog);
        box->setText(QString::fromStdString(text));
        label->setBuddy(box);
        boxes.addWidget(label, place, 0);
        boxes.addWidget(box, place, 1);
    };
    row(0, "lblStartPosiMoji", 1809, "txtStartPosiNo", preset.start, made.lblStartPosiMoji,
        made.txtStartPosiNo);
    row(1, "lblEndPosiMoji", 1810, "txtEndPosiNo", preset.end, made.lblEndPosiMoji,
        made.txtEndPosiNo);
    boxes.setColumnStretch(2, 1);
    MakeRangeButtons(dialog, made);
    return made;
}

void MakeRangeButtons(QDialog& dialog, RangeControls& controls) {
    const auto button = [&dialog](const char* name, std::int16_t tag) {
        auto* control = new QPushButton(&dialog);
        control->setObjectName(QString::fromLatin1(name));
        SetNumbers(*control, tag);
        return control;
    };
    controls.cmdOk = button("cmdOk", 1403);
    controls.cmdOk->setDefault(true);
    controls.cmdCancel = button("cmdCancel", 1404);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(controls.cmdOk);
    buttons->addWidget(controls.cmdCancel);
    static_cast<QBoxLayout*>(dialog.layout())->addLayout(buttons);
    QObject::connect(controls.cmdCancel, &QPushButton::clicked, &dialog, &QDialog::reject);
}

} // namespace qdw8
