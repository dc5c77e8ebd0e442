#include "windows/dialogs/range_controls.h"

#include "windows/controls/load_form_resources.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMargins>
#include <QPushButton>
#include <QVBoxLayout>

namespace qdw8 {

RangeTexts RangeControls::texts() const {
    txtStartPosiNo->settle();
    txtEndPosiNo->settle();
    return {txtStartPosiNo->text().toStdString(), txtEndPosiNo->text().toStdString()};
}

QVBoxLayout* BeginRangeDialog(QDialog& dialog, const char* name) {
    constexpr int kMargin = 16;
    dialog.setObjectName(QString::fromLatin1(name));
    SetNumbers(dialog, 1601);
    auto* layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kRangeSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* text = new QLabel(&dialog);
    text->setObjectName(QStringLiteral("lblSelectPosiNo"));
    SetNumbers(*text, 1602);
    layout->addWidget(text);
    return layout;
}

RangeControls MakeRangeControls(QDialog& dialog, const QMargins& margins,
                                const RangeTexts& preset) {
    RangeControls made;
    auto* boxes = new QGridLayout;
    boxes->setContentsMargins(margins);
    boxes->setHorizontalSpacing(kRangeSpacing * 2);
    static_cast<QBoxLayout*>(dialog.layout())->addLayout(boxes);
    const auto row = [&](int place, const char* labelName, std::int16_t tag, const char* boxName,
                         const std::string& text, QLabel*& label, NumberField*& box) {
        label = new QLabel(&dialog);
        label->setObjectName(QString::fromLatin1(labelName));
        SetNumbers(*label, tag);
        box = new NumberField(QString::fromLatin1(boxName), kPosiNoDigits, &dialog);
        box->setText(QString::fromStdString(text));
        label->setBuddy(box);
        boxes->addWidget(label, place, 0);
        boxes->addWidget(box, place, 1);
    };
    row(0, "lblStartPosiMoji", 1809, "txtStartPosiNo", preset.start, made.lblStartPosiMoji,
        made.txtStartPosiNo);
    row(1, "lblEndPosiMoji", 1810, "txtEndPosiNo", preset.end, made.lblEndPosiMoji,
        made.txtEndPosiNo);
    boxes->setColumnStretch(2, 1);
    MakeRangeButtons(dialog, made);
    return made;
}

void LoadRangeResources(QDialog& dialog, const RangeControls& controls) {
    LoadFormResources(dialog);
    controls.txtStartPosiNo->setAccessibleName(controls.lblStartPosiMoji->text());
    controls.txtEndPosiNo->setAccessibleName(controls.lblEndPosiMoji->text());
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
