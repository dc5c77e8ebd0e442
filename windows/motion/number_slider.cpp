#include "windows/motion/number_slider.h"

#include "platform/platform.h"
#include "windows/controls/arrows.h"
#include "windows/controls/key_field.h"
#include "windows/controls/load_form_resources.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kFieldDigits = 6; ///< width of the field
constexpr int kSliderWidth = 320;
constexpr int kPages = 20; ///< so many page keys go from one end to the other

} // namespace

NumberSlider::NumberSlider(const Names& names, int highest, std::function<void(int)> routine,
                           QGridLayout& layout, int row)
    : QObject(layout.parentWidget()), choose(std::move(routine)) {
    QWidget* parent = layout.parentWidget();
    auto* caption = new QLabel(parent);
    caption->setObjectName(QLatin1String(names.caption));
    SetNumbers(*caption, names.tag);
    SetMnemonic(*caption, names.mnemonic);
    field = new KeyField(QLatin1String(names.number),
                         static_cast<int>(QString::number(highest).size()), IsDigit, parent);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kFieldDigits);
    field->onEnter = [this] { takeTyped(); };
    caption->setBuddy(field);
    arrows = new Arrows(QLatin1String(names.upDown), 1, highest, parent);
    slider = new QSlider(Qt::Horizontal, parent);
    slider->setObjectName(QLatin1String(names.slider));
    slider->setRange(1, highest);
    slider->setPageStep((highest + kPages - 1) / kPages);
    slider->setMinimumWidth(kSliderWidth);
    int column = 0;
    layout.addWidget(caption, row, column);
    for (QWidget* control : {static_cast<QWidget*>(field), static_cast<QWidget*>(arrows),
                             static_cast<QWidget*>(slider)}) {
        SetNumbers(*control, names.tag, names.limits);
        control->installEventFilter(this);
        layout.addWidget(control, row, ++column);
    }
    layout.setColumnStretch(column, 1);
    connect(field, &KeyField::editingFinished, this, [this] { takeTyped(); });
    connect(arrows, &QSpinBox::valueChanged, this, [this](int number) { chosen(number); });
    connect(slider, &QSlider::valueChanged, this, [this](int number) { chosen(number); });
}

NumberSlider::~NumberSlider() {
    // A field that has the focus tells when it loses it, and in a window that goes it does.
    field->disconnect(this);
}

void NumberSlider::chosen(int number) {
    field->setModified(false);
    choose(number);
}

bool NumberSlider::takeTyped() {
    field->settle();
    if (!field->isModified()) {
        return true;
    }
    const int typed = field->text().toInt();
    field->setModified(false);
    if (typed >= 1 && typed <= slider->maximum()) {
        choose(typed);
    }
    const bool taken = typed == value;
    if (!taken) {
        ThePlatform().Beep(); // it isn't the number that counts
        showValue(value);
    }
    if (field->hasFocus()) {
        field->selectAll(); // what is typed next takes its place
    }
    return taken;
}

void NumberSlider::showValue(int number) {
    value = number;
    const QSignalBlocker sliderIsTold(slider);
    const QSignalBlocker arrowsAreTold(arrows);
    slider->setValue(number);
    arrows->setValue(number);
    if (const QString text = QString::number(number);
        !field->isModified() && field->text() != text) {
        field->setText(text);
    }
}

void NumberSlider::setEnabled(bool on) {
    field->setEnabled(on);
    arrows->setEnabled(on);
    slider->setEnabled(on);
}

bool NumberSlider::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
        event->ignore();
        return true; // it turned under a pointer that only lay there
    }
    if (event->type() != QEvent::KeyPress || watched == slider) {
        return false;
    }
    const auto move = [this](QAbstractSlider::SliderAction action) {
        takeTyped();
        slider->triggerAction(action);
        return true;
    };
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up: return move(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_Down: return move(QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_PageUp: return move(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_PageDown: return move(QAbstractSlider::SliderPageStepSub);
    default: return false;
    }
}

} // namespace qdw8
