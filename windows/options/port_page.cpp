#include "windows/options/port_page.h"

#include "link/port_words.h"
#include "platform/port_info.h"
#include "setup/options.h"
#include "windows/controls/key_field.h"
#include "windows/controls/load_form_resources.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QStringList>
#include <QTimerEvent>
#include <QVBoxLayout>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 10;
constexpr int kSentenceLines = 4; ///< the longest of them
constexpr int kListLines = 4;
constexpr int kFieldDigits = 4;
constexpr int kLookAgainMs = 1000;

} // namespace

PortPage::PortPage(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);

    auto* row = new QHBoxLayout;
    auto* caption = new QLabel(this);
    caption->setObjectName(QStringLiteral("lblPortNo"));
    SetNumbers(*caption, 2509);
    txtPortNo = new KeyField(QStringLiteral("txtPortNo"), kPortCharacters, TakesPortKey, this);
    SetNumbers(*txtPortNo, 2509, 3295);
    txtPortNo->setFixedWidth(txtPortNo->fontMetrics().horizontalAdvance(QLatin1Char('0')) *
                             kFieldDigits);
    caption->setBuddy(txtPortNo);
    row->addWidget(caption);
    row->addWidget(txtPortNo);
    row->addStretch();
    layout->addLayout(row);

    sentence = new QLabel(this);
    sentence->setObjectName(QStringLiteral("lblPortState"));
    sentence->setWordWrap(true);
    sentence->setTextFormat(Qt::PlainText);
    sentence->setTextInteractionFlags(Qt::TextSelectableByMouse);
    sentence->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    sentence->setFixedHeight(kSentenceLines * sentence->fontMetrics().lineSpacing());
    layout->addWidget(sentence);

    chkPortOccupy = new QCheckBox(this);
    chkPortOccupy->setObjectName(QStringLiteral("chkPortOccupy"));
    SetNumbers(*chkPortOccupy, 2510);
    layout->addWidget(chkPortOccupy);

    auto* head = new QLabel(this);
    head->setObjectName(QStringLiteral("lblSerialDevices"));
    SetNumbers(*head, 3282);
    devices = new QListWidget(this);
    devices->setObjectName(QStringLiteral("lstSerialDevices"));
    SetNumbers(*devices, 3282);
    devices->setWordWrap(true);
    devices->setSelectionMode(QAbstractItemView::NoSelection);
    devices->setFixedHeight(kListLines * (devices->fontMetrics().lineSpacing() + 2) +
                            2 * devices->frameWidth());
    layout->addWidget(head);
    layout->addWidget(devices);
    layout->addStretch();
}

void PortPage::showPort(std::int16_t portNo) {
    shownPort = portNo;
    look();
}

/// Touches only what has changed: somebody may be reading, or copying.
void PortPage::look() {
    const QString said = QString::fromStdString(PortSentence(shownPort, LookAtPort(shownPort)));
    if (sentence->text() != said) {
        sentence->setText(said);
        sentence->setAccessibleName(said);
    }
    QStringList lines;
    for (const std::string& line : SerialDeviceLines()) {
        lines << QString::fromStdString(line);
    }
    QStringList shown;
    for (int row = 0; row < devices->count(); ++row) {
        shown << devices->item(row)->text();
    }
    if (lines != shown) {
        devices->clear();
        devices->addItems(lines);
    }
}

void PortPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    look();
    if (ticks == 0) {
        ticks = startTimer(kLookAgainMs);
    }
}

void PortPage::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (ticks != 0) {
        killTimer(std::exchange(ticks, 0));
    }
}

void PortPage::timerEvent(QTimerEvent* event) {
    if (event->timerId() == ticks) {
        look();
    } else {
        QWidget::timerEvent(event);
    }
}

} // namespace qdw8
