#include "windows/main/line_row.h"

#include "app/main_panel.h"
#include "link/line_status.h"
#include "windows/controls/icons.h"
#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QToolTip>

namespace qdw8 {
namespace {

constexpr int kSignSide = 16;
constexpr int kSpacing = 6;
constexpr int kFocusRoom = 2; ///< above and below the fields, for the frame that shows the focus
constexpr int kStateCharacters = 24;
/// Digits; a link whose device is gone may name a much longer one.
constexpr int kLongestPort = 44;

} // namespace

LineRow::LineRow(QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("FrameLine"));
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, kFocusRoom, 0, kFocusRoom);
    layout->setSpacing(kSpacing);
    caption = new QLabel(this);
    caption->setObjectName(QStringLiteral("lblLine"));
    SetNumbers(*caption, 218);
    layout->addWidget(caption);
    constexpr std::array kDrawings{Drawing::LampWhite, Drawing::LampGreen, Drawing::LampRed};
    for (std::size_t sign = 0; sign < signs.size(); ++sign) {
        signs[sign] = new PictureLabel(IconOf(kDrawings[sign]), kSignSide, this);
        signs[sign]->setObjectName(QStringLiteral("imgLine(%1)").arg(sign));
        layout->addWidget(signs[sign]);
    }
    port = new FieldLabel(QStringLiteral("lblLinePort"), 0, this);
    layout->addWidget(port);
    state = new FieldLabel(QStringLiteral("lblLineState"), kStateCharacters, this);
    state->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(state, 1);
}

void LineRow::showLine(const LinePanel& line) {
    for (std::size_t sign = 0; sign < signs.size(); ++sign) {
        signs[sign]->setVisible(sign == static_cast<std::size_t>(line.sign));
    }
    // As wide as its words, and no other when it is opened or closed.
    const auto words = [&line](bool open) {
        return QString::fromStdString(PortInWords(line, open));
    };
    const QFontMetrics font = port->fontMetrics();
    const int room =
        qMax(font.horizontalAdvance(words(true)), font.horizontalAdvance(words(false)));
    const int most = font.horizontalAdvance(QLatin1Char('0')) * kLongestPort;
    port->setFixedWidth(port->sizeHint().width() + qMin(room, most));
    port->setValue({}, words(line.open));
    state->setValue({}, QString::fromStdString(line.state));
    // The row's own tells more.
    port->setToolTip({});
    state->setToolTip({});
    setAccessibleName(caption->text() + QLatin1Char(' ') + port->text() + QLatin1String(" - ") +
                      state->text());
    if (hasFocus()) {
        setAccessibleDescription(QString::fromStdString(LineDetails()));
    }
}

/// The other ports are looked for when somebody asks, and not all the time.
bool LineRow::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QFrame::event(event);
    }
    QToolTip::showText(
        static_cast<QHelpEvent*>(event)->globalPos(),
        Qt::convertFromPlainText(QString::fromStdString(LineDetails()), Qt::WhiteSpaceNormal),
        this);
    return true;
}

void LineRow::focusInEvent(QFocusEvent* event) {
    setAccessibleDescription(QString::fromStdString(LineDetails()));
    QFrame::focusInEvent(event);
}

void LineRow::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.state |= QStyle::State_KeyboardFocusChange; // after a click, too
        option.backgroundColor = palette().color(QPalette::Window);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

} // namespace qdw8
