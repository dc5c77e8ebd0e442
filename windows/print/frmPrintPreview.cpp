#include "windows/print/frmPrintPreview.h"

#include "platform/qt/kept_places.h"
#include "platform/qt/printed_pages.h"
#include "print/print_job.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"
#include "windows/print/page_picture.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr QSize kSize{860, 960};
constexpr QSize kAround{20, 60}; ///< the frame of the window, and some room to the screen's edge
constexpr double kStep = 1.25;
constexpr double kLeastScale = 1.0;
constexpr double kMostScale = 16.0;

enum Result : std::uint8_t { kLeft, kToBePrinted, kOtherPrinter };

} // namespace

frmPrintPreview::frmPrintPreview(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmPrintPreview"));
    SetNumbers(*this, 3251);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    body = new QWidget(this);
    whole->addWidget(body);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    auto* pages = new QHBoxLayout;
    makePageButtons(*pages);
    layout->addLayout(pages);
    area = new QScrollArea(body);
    area->setObjectName(QStringLiteral("areaPage"));
    area->setAlignment(Qt::AlignCenter);
    area->setBackgroundRole(QPalette::Mid);
    SetNumbers(*area, 3262);
    picture = new PagePicture(area);
    picture->onZoom = [this](int steps) { zoom(steps); };
    area->setWidget(picture);
    layout->addWidget(area, 1);
    auto* end = new QHBoxLayout;
    makeEndButtons(*end);
    layout->addLayout(end);
    makeKeys();
    LoadFormResources(*this);
    QSize size = KeepSize(*this, kSize);
    if (const QScreen* on = screen()) {
        size = size.boundedTo(on->availableSize() - kAround);
    }
    resize(size);
    turnTo(0);
    area->setFocus();
}

QPushButton* frmPrintPreview::add(QHBoxLayout& row, const char* name, std::int16_t caption,
                                  const std::function<void()>& click, char letter) {
    auto* made = new QPushButton(body);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false);
    SetNumbers(*made, caption);
    if (letter != 0) {
        SetMnemonic(*made, letter);
    }
    row.addWidget(made);
    connect(made, &QPushButton::clicked, this, click);
    return made;
}

void frmPrintPreview::makePageButtons(QHBoxLayout& row) {
    back = add(
        row, "cmdPageBack", 3256, [this] { turnTo(page - 1); }, 'r');
    number = new QLabel(body);
    number->setObjectName(QStringLiteral("lblPageNo"));
    number->setAlignment(Qt::AlignCenter);
    number->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral(" 000 / 000 ")));
    row.addWidget(number);
    forward = add(
        row, "cmdPageForward", 3257, [this] { turnTo(page + 1); }, 'N');
    row.addStretch();
    add(
        row, "cmdZoomOut", 3255, [this] { zoom(-1); }, 'O');
    add(
        row, "cmdZoomIn", 3254, [this] { zoom(1); }, 'I');
    add(
        row, "cmdWholePage", 3253, [this] { fitTo(Fit::Page); }, 'W');
    add(
        row, "cmdPageWidth", 3252, [this] { fitTo(Fit::Width); }, 'd');
}

void frmPrintPreview::makeEndButtons(QHBoxLayout& row) {
    add(
        row, "cmdPreviewPdf", 3258, [this] { savePdf(); }, 'S');
    add(row, "cmdPreviewPrinter", 3259, [this] { done(kOtherPrinter); });
    row.addStretch();
    add(
        row, "cmdPreviewPrint", 3260, [this] { done(kToBePrinted); }, 'P')
        ->setDefault(true);
    add(row, "cmdPreviewCancel", 1404, [this] { reject(); });
}

void frmPrintPreview::makeKeys() {
    const auto key = [this](const QKeySequence& keys, const std::function<void()>& act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    key(Qt::Key_PageUp, [this] { turnTo(page - 1); });
    key(Qt::Key_PageDown, [this] { turnTo(page + 1); });
    key(Qt::Key_Home, [this] { turnTo(0); });
    key(Qt::Key_End, [this] { turnTo(PrintedPages() - 1); });
    key(QKeySequence::ZoomIn, [this] { zoom(1); });
    key(QKeySequence::ZoomOut, [this] { zoom(-1); });
}

void frmPrintPreview::turnTo(int wanted) {
    const int last = std::max(0, PrintedPages() - 1);
    page = std::clamp(wanted, 0, last);
    picture->showPage(page);
    area->verticalScrollBar()->setValue(0);
    number->setText(QStringLiteral("%1 / %2").arg(page + 1).arg(PrintedPages()));
    number->setAccessibleName(ResQText(3261) + QLatin1Char(' ') + number->text());
    back->setEnabled(page > 0);
    forward->setEnabled(page < last);
}

void frmPrintPreview::fitTo(Fit wanted) {
    fit = wanted;
    const QSizeF sheet = SheetMm();
    // The bar at the side is counted in, there or not, so that it doesn't come and go.
    const int bar = area->verticalScrollBar()->sizeHint().width();
    const int around = 2 * (kSheetBorder + area->frameWidth());
    const QSize room = area->size() - QSize(bar + around, around);
    const double wide = room.width() / sheet.width();
    setScale(fit == Fit::Page ? std::min(wide, room.height() / sheet.height()) : wide);
}

void frmPrintPreview::zoom(int steps) {
    fit = Fit::None;
    setScale(scale * std::pow(kStep, steps));
}

void frmPrintPreview::setScale(double wanted) {
    scale = std::clamp(wanted, kLeastScale, kMostScale);
    picture->setScale(scale);
}

void frmPrintPreview::savePdf() {
    body->setEnabled(false);
    cmdPreviewPdf_Click();
    body->setEnabled(true);
    area->setFocus();
}

void frmPrintPreview::reject() {
    if (body->isEnabled()) {
        QDialog::reject();
    }
}

void frmPrintPreview::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (fit != Fit::None) {
        fitTo(fit);
    }
}

void frmPrintPreview::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    fitTo(fit);
}

std::int16_t ShowPrintPreview(QWidget* parent) {
    return static_cast<std::int16_t>(frmPrintPreview(parent).exec());
}

} // namespace qdw8
