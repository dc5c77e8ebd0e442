#include "windows/print/page_picture.h"

#include "platform/qt/printed_pages.h"

#include <QPainter>
#include <QWheelEvent>

namespace qdw8 {

PagePicture::PagePicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picPage"));
}

void PagePicture::showPage(int wanted) {
    page = wanted;
    update();
}

void PagePicture::setScale(double pixels) {
    scale = pixels;
    resize((SheetMm() * scale).toSize() + QSize(2 * kSheetBorder, 2 * kSheetBorder));
    update();
}

void PagePicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(kSheetBorder, kSheetBorder);
    painter.scale(scale, scale);
    const QRectF sheet(QPointF(), SheetMm());
    painter.fillRect(sheet, Qt::white);
    painter.setPen(QPen(Qt::gray, 0));
    painter.drawRect(sheet);
    if (page >= 0 && page < PrintedPages()) {
        DrawPrintedPage(painter, page);
    }
}

void PagePicture::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier) && onZoom) {
        onZoom(event->angleDelta().y() > 0 ? 1 : -1);
        event->accept();
    } else {
        QWidget::wheelEvent(event);
    }
}

} // namespace qdw8
