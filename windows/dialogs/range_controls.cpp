#include "windows/dialogs/range_controls.h"

#include "windows/controls/load_form_resources.h"

#include <QDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>

namespace qdw8 {
namespace {

constexpr int kDigits = 3;
constexpr int kBoxCharacters = 8;

} // namespace

PosiNoBox::PosiNoBox(const QString& name, QWidget* parent) : QLineEdit(parent) {
    setObjectName(name);
    setMaxLength(kDigits);
    setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), this));
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAlignment(Qt::AlignRight);
    setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kBoxCharacters);
}

void PosiNoBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: focusNextChild(); return;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End: QLineEdit::keyPressEvent(event); return;
    case Qt::Key_Escape:
        event->ignore(); // the dialog's
        return;
    default: break;
    }
    const QString text = event->text();
    const bool digit =
        text.size() == 1 && text[0] >= QLatin1Char('0') && text[0] <= QLatin1Char('9');
    if (digit && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        QLineEdit::keyPressEvent(event);
    }
}

void PosiNoBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
}

RangeTexts RangeControls::texts() const {
    return {txtStartPosiNo->text().toStdString(), txtEndPosiNo->text().toStdString()};
}

RangeControls MakeRangeControls(QDialog& dialog, QGridLayout& boxes, const RangeTexts& preset) {
    RangeControls made;
    const auto row = [&](int place, const char* labelName, std::int16_t tag, const char* boxName,
                         const std::string& text, QLabel*& label, PosiNoBox*& box) {
        label = new QLabel(&dialog);
        label->setObjectName(QString::fromLatin1(labelName));
        SetNumbers(*label, tag);
        box = new PosiNoBox(QString::fromLatin1(boxName), &dialog);
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
