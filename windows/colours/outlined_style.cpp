#include "windows/colours/outlined_style.h"

#include "windows/colours/legible.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <optional>

namespace qdw8 {
namespace {

/// A frame must stand out at least so much, a text more.
constexpr double kSeen = 3;
/// What the toolkit draws on a light scheme stands out so far.
constexpr double kToolkit = 1.5;
/// How much darker than the window it makes its outlines, in percent.
constexpr int kDarker = 140;

/// The outline for a scheme in which the toolkit's can't be seen; none where it can.
std::optional<QColor> Outline(const QPalette& palette, double contrast) {
    const QColor ground = palette.color(QPalette::Window);
    if (Contrast(ground.darker(kDarker), ground) >= kToolkit) {
        return std::nullopt;
    }
    return Apart(ground, ground, contrast);
}

void Frame(QPainter& painter, const QStyleOption& option, const QRect& place, bool round = false) {
    const bool enabled = (option.state & QStyle::State_Enabled) != 0;
    const auto outline = Outline(option.palette, enabled ? kSeen : kToolkit);
    if (!outline) {
        return;
    }
    const bool focus = enabled && (option.state & QStyle::State_HasFocus) != 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(focus ? Apart(option.palette.color(QPalette::Highlight),
                                 option.palette.color(QPalette::Window), kSeen)
                         : *outline);
    painter.setBrush(Qt::NoBrush);
    const QRectF inside = QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5);
    round ? painter.drawEllipse(inside) : painter.drawRoundedRect(inside, 2, 2);
    painter.restore();
}

/// The frame of a group stands below its title.
QRect GroupFrame(const QStyle& style, const QStyleOption& option, const QWidget* group) {
    constexpr int kGap = 3;
    const bool named = group != nullptr && !group->property("title").toString().isEmpty();
    const int title = qMax(style.pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, nullptr, group),
                           option.fontMetrics.height());
    return option.rect.adjusted(0, kGap + (named ? title : 0), 0, 0);
}

} // namespace

OutlinedStyle::OutlinedStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
    case PE_IndicatorRadioButton: return Frame(*painter, *option, option->rect, true);
    case PE_FrameGroupBox: return Frame(*painter, *option, GroupFrame(*this, *option, widget));
    case PE_IndicatorCheckBox:
    case PE_FrameLineEdit:
    case PE_PanelButtonCommand:
    case PE_Frame: return Frame(*painter, *option, option->rect);
    default: return;
    }
}

void OutlinedStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == CE_ShapedFrame && frame != nullptr && frame->frameShape != QFrame::NoFrame) {
        Frame(*painter, *option, option->rect);
    }
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox) {
        Frame(*painter, *option, option->rect);
    } else if (control == CC_Slider) {
        Frame(*painter, *option, subControlRect(control, option, SC_SliderGroove, widget));
        Frame(*painter, *option, subControlRect(control, option, SC_SliderHandle, widget));
    }
}

int OutlinedStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* answer) const {
    if (hint == SH_Table_GridLineColor && option != nullptr) {
        if (const auto outline = Outline(option->palette, kToolkit)) {
            return static_cast<int>(outline->rgba());
        }
    }
    return QProxyStyle::styleHint(hint, option, widget, answer);
}

} // namespace qdw8
