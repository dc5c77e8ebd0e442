#include "text_notes.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>

namespace qdw8::test {
namespace {

/// Draws nothing and notes the texts.
class NotingEngine : public QPaintEngine {
public:
    NotingEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    Type type() const override { return User; }

    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        if (item.text().trimmed().isEmpty()) {
            return;
        }
        const QTransform way = painter()->deviceTransform();
        const QRectF place(at.x(), at.y() - item.ascent(), item.width(),
                           item.ascent() + item.descent());
        QRectF room(area);
        if (painter()->hasClipping()) {
            room &= way.mapRect(painter()->clipBoundingRect());
        }
        const DrawnText text{item.text(), way.mapRect(place), room, painter()->pen().color()};
        const auto same = std::find_if(texts.begin(), texts.end(), [&text](const DrawnText& one) {
            return one.text == text.text && one.place == text.place;
        });
        if (same == texts.end()) {
            texts.push_back(text);
        } else {
            same->room |= text.room; // drawn in parts, as a head over several columns
        }
    }

    QRect area;
    std::vector<DrawnText> texts;
};

class NotingDevice : public QPaintDevice {
public:
    explicit NotingDevice(const QWidget& control) : like(control) { notes.area = like.rect(); }

    QPaintEngine* paintEngine() const override { return &notes; }
    mutable NotingEngine notes;

protected:
    int metric(PaintDeviceMetric asked) const override {
        switch (asked) {
        case PdmWidth: return like.width();
        case PdmHeight: return like.height();
        case PdmDpiX:
        case PdmPhysicalDpiX: return like.logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY: return like.logicalDpiY();
        case PdmDevicePixelRatioScaled: return QPaintDevice::metric(asked);
        default: return 1;
        }
    }

private:
    const QWidget& like;
};

} // namespace

std::vector<DrawnText> TextsOf(QWidget& control) {
    NotingDevice device(control);
    control.render(&device, {}, {}, QWidget::RenderFlags());
    return device.notes.texts;
}

} // namespace qdw8::test
