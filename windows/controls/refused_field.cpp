#include "windows/controls/refused_field.h"

#include "windows/controls/icons.h"

#include <QComboBox>
#include <QEvent>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleOptionComboBox>

namespace qdw8 {
namespace {

/// Dynamic property: the field is coloured.
constexpr const char* kRefused = "Refused";

void Colour(QWidget& field, bool refused) {
    if (field.property(kRefused).toBool() == refused) {
        return;
    }
    field.setProperty(kRefused, refused);
    QPalette colours;
    if (refused) {
        ColourRefused(colours);
    }
    field.setPalette(colours);
    ShowRefusedSign(field, refused);
}

/// Lies on the field, which keeps its size, and goes along with it.
class Sign : public QWidget {
public:
    explicit Sign(QWidget& of) : QWidget(&of), field(of) {
        setObjectName(QStringLiteral("imgRefused"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        field.installEventFilter(this);
        place();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize) {
            place();
        }
        return false;
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        IconOf(Drawing::LampRed).paint(&painter, rect());
    }

private:
    /// A list has its text at the left, a field for figures at the right.
    void place() {
        QRect area = field.rect();
        const bool list = qobject_cast<QComboBox*>(&field) != nullptr;
        if (list) {
            QStyleOptionComboBox option;
            option.initFrom(&field);
            area = field.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                 QStyle::SC_ComboBoxEditField, &field);
        }
        const int side = qMin(fontMetrics().ascent(), area.height());
        const int gap = (field.height() - side) / 2;
        setGeometry(list ? area.right() - side : gap, gap, side, side);
    }

    QWidget& field;
};

} // namespace

void ColourRefused(QPalette& palette) {
    for (const auto role : {QPalette::Base, QPalette::Button}) { // a list is a button
        palette.setColor(role, kRefusedColour);
    }
    for (const auto role : {QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, Qt::black);
    }
}

void ShowRefusedSign(QWidget& field, bool refused) {
    auto* sign = field.findChild<QWidget*>(QStringLiteral("imgRefused"));
    if (refused && sign == nullptr) {
        (new Sign(field))->show();
    } else if (!refused) {
        delete sign;
    }
}

void ShowJudgement(QWidget& field, const QString& reason, const QString& limits) {
    Colour(field, !reason.isEmpty());
    const QString tip = reason.isEmpty() ? limits : reason;
    if (field.toolTip() != tip) {
        field.setToolTip(tip);
        field.setAccessibleDescription(tip);
    }
}

} // namespace qdw8
