#include "windows/access/visible_focus.h"

#include "windows/colours/outlined_style.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace qdw8 {
namespace {

constexpr int kInset = 3;     ///< of the frame inside a button
constexpr int kAreaFrame = 2; ///< around what scrolls; a single line would hardly be seen

class VisibleFocus : public QProxyStyle {
public:
    VisibleFocus() : QProxyStyle(new OutlinedStyle) {}

    using QProxyStyle::polish;
    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        if (widget->isWindow()) {
            widget->installEventFilter(this);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            static_cast<QWidget*>(watched)->setAttribute(Qt::WA_KeyboardFocusChange);
        }
        return QProxyStyle::eventFilter(watched, event);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        const auto* heads = qobject_cast<const QHeaderView*>(widget);
        if (metric == PM_HeaderGripMargin && heads != nullptr && heads->count() > 0 &&
            heads->sectionResizeMode(0) == QHeaderView::Fixed) {
            return 0; // nothing can be gripped there, and a click would be lost
        }
        const bool ofArea = metric == PM_DefaultFrameWidth &&
                            qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
        return ofArea ? kAreaFrame : QProxyStyle::pixelMetric(metric, option, widget);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        QProxyStyle::drawControl(element, option, painter, widget);
        // Behind Alt the entry is the current one, and not opened yet.
        if (element == CE_MenuBarItem && option->state.testFlag(State_Selected) &&
            !option->state.testFlag(State_Sunken)) {
            painter->setPen(QPen(option->palette.color(QPalette::Highlight), kAreaFrame));
            painter->drawRect(option->rect.adjusted(1, 1, -1, -1));
        }
        if (!option->state.testFlag(State_HasFocus)) {
            return;
        }
        if (element == CE_PushButton) {
            painter->setPen(QPen(option->palette.color(QPalette::ButtonText), 1, Qt::DotLine));
            painter->drawRect(option->rect.adjusted(kInset, kInset, -kInset - 1, -kInset - 1));
        } else if (element == CE_ShapedFrame &&
                   qobject_cast<const QAbstractScrollArea*>(widget) != nullptr) {
            painter->setPen(QPen(option->palette.color(QPalette::Highlight), kAreaFrame));
            painter->drawRect(option->rect.adjusted(1, 1, -1, -1));
        }
    }
};

} // namespace

void InstallStyle() {
    QApplication::setStyle(new VisibleFocus);
}

} // namespace qdw8
