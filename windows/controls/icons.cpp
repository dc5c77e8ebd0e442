#include "windows/controls/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace qdw8 {
namespace {

/// The drawings stand on a square of this side; the painter is scaled to the size asked for.
constexpr qreal kSide = 24;

struct Inks {
    QColor line;   ///< outlines
    QColor paper;  ///< sheets and cells
    QColor accent; ///< what the drawing is about
    QColor go;     ///< data that come in, things that are added
    QColor send;   ///< data that go out
};

Inks InksFor(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Disabled) {
        const QColor grey = palette.color(QPalette::Disabled, QPalette::WindowText);
        return {grey, palette.color(QPalette::Window), grey.lighter(120), grey, grey};
    }
    const QColor line = palette.color(QPalette::Active, QPalette::WindowText);
    const bool dark = palette.color(QPalette::Window).lightness() < 128;
    return {line, palette.color(QPalette::Base), dark ? QColor(0x6FAEE8) : QColor(0x2A6DB0),
            dark ? QColor(0x6CC57C) : QColor(0x2C8A43), dark ? QColor(0xF0A860) : QColor(0xC8661A)};
}

QPen Pen(const QColor& colour, qreal width = 1.4) {
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// An arrow from one point to another, along an axis, with a filled head.
void Arrow(QPainter& painter, QPointF from, QPointF to, const QColor& colour, qreal width = 2) {
    const QPointF way = to - from;
    const qreal length = qAbs(way.x()) + qAbs(way.y());
    const QPointF ahead = way / length;
    const QPointF across(-ahead.y(), ahead.x());
    const QPointF neck = to - ahead * 4;
    painter.setPen(Pen(colour, width));
    painter.drawLine(from, neck);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF{to, neck + across * 3.4, neck - across * 3.4});
}

/// A sheet of paper with a folded corner.
void Sheet(QPainter& painter, const Inks& inks, const QRectF& area, qreal fold = 5) {
    QPainterPath outline(area.topLeft());
    outline.lineTo(area.right() - fold, area.top());
    outline.lineTo(area.right(), area.top() + fold);
    outline.lineTo(area.bottomRight());
    outline.lineTo(area.bottomLeft());
    outline.closeSubpath();
    painter.setPen(Pen(inks.line));
    painter.setBrush(inks.paper);
    painter.drawPath(outline);
    painter.drawPolyline(QPolygonF{{area.right() - fold, area.top()},
                                   {area.right() - fold, area.top() + fold},
                                   {area.right(), area.top() + fold}});
}

void Box(QPainter& painter, const QRectF& area, const QColor& line, const QColor& fill,
         qreal round = 1) {
    painter.setPen(Pen(line));
    painter.setBrush(fill);
    painter.drawRoundedRect(area, round, round);
}

void DrawNew(QPainter& painter, const Inks& inks) {
    Sheet(painter, inks, {4.5, 2.5, 13, 18});
    painter.setPen(Pen(inks.go, 2.4));
    painter.drawLine(QPointF(17.5, 13.5), QPointF(17.5, 21.5));
    painter.drawLine(QPointF(13.5, 17.5), QPointF(21.5, 17.5));
}

void DrawOpen(QPainter& painter, const Inks& inks) {
    painter.setPen(Pen(inks.line));
    painter.setBrush(inks.paper);
    painter.drawPolygon(
        QPolygonF{{2.5, 19.5}, {2.5, 5.5}, {9, 5.5}, {11, 8}, {18.5, 8}, {18.5, 19.5}});
    QColor front = inks.send;
    front.setAlpha(150);
    painter.setBrush(front);
    painter.drawPolygon(QPolygonF{{2.5, 19.5}, {6, 11.5}, {22, 11.5}, {18.5, 19.5}});
}

void DrawSave(QPainter& painter, const Inks& inks) {
    painter.setPen(Pen(inks.line));
    painter.setBrush(inks.accent);
    painter.drawPolygon(QPolygonF{{3.5, 3.5}, {17.5, 3.5}, {20.5, 6.5}, {20.5, 20.5}, {3.5, 20.5}});
    Box(painter, {7.5, 3.5, 8, 5.5}, inks.line, inks.paper, 0);
    Box(painter, {6.5, 12.5, 11, 8}, inks.line, inks.paper, 0);
}

void DrawPrint(QPainter& painter, const Inks& inks) {
    Box(painter, {6.5, 2.5, 11, 7}, inks.line, inks.paper, 0);
    Box(painter, {2.5, 8.5, 19, 9}, inks.line, inks.accent, 1.5);
    Box(painter, {6.5, 13.5, 11, 8}, inks.line, inks.paper, 0);
    painter.setPen(Pen(inks.line, 1.1));
    painter.drawLine(QPointF(9, 16.5), QPointF(15, 16.5));
    painter.drawLine(QPointF(9, 19), QPointF(13, 19));
}

/// The screen of the PC on the left and the controller on the right.
void PcAndController(QPainter& painter, const Inks& inks) {
    Box(painter, {1.5, 3.5, 10, 7.5}, inks.line, inks.paper);
    painter.drawLine(QPointF(4, 13.5), QPointF(9, 13.5));
    painter.drawLine(QPointF(6.5, 11), QPointF(6.5, 13.5));
    Box(painter, {15.5, 2.5, 7, 11}, inks.line, inks.accent);
    painter.setPen(Pen(inks.paper, 1.3));
    painter.drawLine(QPointF(17.5, 5.5), QPointF(20.5, 5.5));
    painter.drawLine(QPointF(17.5, 8), QPointF(20.5, 8));
}

void DrawRead(QPainter& painter, const Inks& inks) {
    PcAndController(painter, inks);
    Arrow(painter, {21, 18.5}, {3.5, 18.5}, inks.go, 2.4);
}

void DrawLoad(QPainter& painter, const Inks& inks) {
    PcAndController(painter, inks);
    Arrow(painter, {3, 18.5}, {20.5, 18.5}, inks.send, 2.4);
}

void DrawShogo(QPainter& painter, const Inks& inks) {
    Sheet(painter, inks, {2.5, 2.5, 9, 13}, 3);
    Sheet(painter, inks, {12.5, 2.5, 9, 13}, 3);
    painter.setPen(Pen(inks.go, 2.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{{7.5, 17}, {11, 20.5}, {17, 13}});
}

/// A line of a table: a strip of three cells, the first one marked.
void Strip(QPainter& painter, const Inks& inks, const QPointF& at, qreal width) {
    Box(painter, {at.x(), at.y(), width, 6}, inks.line, inks.paper, 0);
    painter.fillRect(QRectF(at.x() + 0.7, at.y() + 0.7, width / 3 - 0.7, 4.6), inks.accent);
    painter.setPen(Pen(inks.line, 1.1));
    for (const int cell : {1, 2}) {
        const qreal x = at.x() + width * cell / 3;
        painter.drawLine(QPointF(x, at.y()), QPointF(x, at.y() + 6));
    }
}

void Clip(QPainter& painter, const Inks& inks) {
    Box(painter, {3.5, 4, 15, 17.5}, inks.line, inks.paper, 1.5);
    Box(painter, {7.5, 2, 7, 4}, inks.line, inks.line, 1.5);
}

void DrawLineCopy(QPainter& painter, const Inks& inks) {
    Strip(painter, inks, {2.5, 3.5}, 16);
    Arrow(painter, {8, 10}, {8, 16}, inks.go, 1.8);
    Strip(painter, inks, {5.5, 15.5}, 16);
}

void DrawLinePaste(QPainter& painter, const Inks& inks) {
    Clip(painter, inks);
    Strip(painter, inks, {6.5, 11.5}, 15);
}

void DrawCellCopy(QPainter& painter, const Inks& inks) {
    Box(painter, {3.5, 3.5, 10, 8}, inks.line, inks.accent, 0);
    Box(painter, {10.5, 12.5, 10, 8}, inks.line, inks.accent, 0);
    painter.setPen(Pen(inks.go, 1.8));
    painter.setBrush(Qt::NoBrush);
    painter.drawLine(QPointF(6.5, 12), QPointF(6.5, 17));
    Arrow(painter, {6.5, 17}, {10.5, 17}, inks.go, 1.8);
}

void DrawCellPaste(QPainter& painter, const Inks& inks) {
    Clip(painter, inks);
    Box(painter, {11.5, 11.5, 10, 8}, inks.line, inks.accent, 0);
}

void DrawInputOutput(QPainter& painter, const Inks& inks) {
    Box(painter, {8.5, 2.5, 7, 19}, inks.line, inks.paper);
    painter.setPen(Qt::NoPen);
    for (const qreal y : {6.0, 10.0, 14.0, 18.0}) {
        painter.setBrush(y < 12 ? inks.go : inks.send);
        painter.drawEllipse(QPointF(12, y), 1.5, 1.5);
    }
    Arrow(painter, {0.8, 8}, {7.8, 8}, inks.go, 1.8);
    Arrow(painter, {16.2, 16}, {23.2, 16}, inks.send, 1.8);
}

void DrawMoveTest(QPainter& painter, const Inks& inks) {
    Box(painter, {1.5, 15.5, 21, 3.5}, inks.line, inks.paper);
    Box(painter, {8.5, 11.5, 7, 5.5}, inks.line, inks.accent);
    Arrow(painter, {11, 7}, {2.5, 7}, inks.go, 2);
    Arrow(painter, {13, 7}, {21.5, 7}, inks.go, 2);
}

void DrawGroup(QPainter& painter, const Inks& inks) {
    for (const qreal y : {3.5, 9.5, 15.5}) {
        Box(painter, {9.5, y, 12, 4.5}, inks.line, y > 9 ? inks.accent : inks.paper, 0);
    }
    painter.setPen(Pen(inks.accent, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{{6.5, 10}, {3, 10}, {3, 20}, {6.5, 20}});
}

void DrawSqMacro(QPainter& painter, const Inks& inks) {
    painter.setPen(Pen(inks.go, 1.8));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{{9, 5}, {13, 5}, {13, 9}});
    painter.drawPolyline(QPolygonF{{16, 12}, {19.5, 12}, {19.5, 16}});
    Box(painter, {1.5, 2.5, 8, 5}, inks.line, inks.accent);
    Box(painter, {8.5, 9.5, 8, 5}, inks.line, inks.accent);
    Box(painter, {14.5, 16.5, 8, 5}, inks.line, inks.accent);
}

/// Lamps that are on keep their colours on every palette: the colour is what they say.
void DrawLamp(QPainter& painter, const QColor& fill, const QColor& rim) {
    painter.setPen(Pen(rim, 2));
    painter.setBrush(fill);
    painter.drawEllipse(QRectF(2, 2, 20, 20));
}

void DrawLampGreen(QPainter& painter, const Inks&) {
    DrawLamp(painter, QColor(0x1E8537), QColor(0x0F5220));
    painter.setPen(Pen(Qt::white, 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{{7, 12.5}, {10.5, 16}, {17, 8.5}});
}

/// Dark where the desktop is: a white disc there would look brighter than a lamp that is on.
void DrawLampWhite(QPainter& painter, const Inks& inks) {
    QColor rim = inks.line;
    rim.setAlpha(160);
    DrawLamp(painter, inks.paper, rim);
}

void DrawLampRed(QPainter& painter, const Inks&) {
    DrawLamp(painter, QColor(0xD8322A), QColor(0x7E120D));
    painter.setPen(Pen(Qt::white, 3));
    painter.drawLine(QPointF(12, 6.5), QPointF(12, 13));
    painter.drawPoint(QPointF(12, 17.5));
}

void Draw(Drawing drawing, QPainter& painter, const Inks& inks) {
    switch (drawing) {
    case Drawing::New: return DrawNew(painter, inks);
    case Drawing::Open: return DrawOpen(painter, inks);
    case Drawing::Save: return DrawSave(painter, inks);
    case Drawing::Print: return DrawPrint(painter, inks);
    case Drawing::Read: return DrawRead(painter, inks);
    case Drawing::Load: return DrawLoad(painter, inks);
    case Drawing::Shogo: return DrawShogo(painter, inks);
    case Drawing::LineCopy: return DrawLineCopy(painter, inks);
    case Drawing::LinePaste: return DrawLinePaste(painter, inks);
    case Drawing::CellCopy: return DrawCellCopy(painter, inks);
    case Drawing::CellPaste: return DrawCellPaste(painter, inks);
    case Drawing::InputOutput: return DrawInputOutput(painter, inks);
    case Drawing::MoveTest: return DrawMoveTest(painter, inks);
    case Drawing::Group: return DrawGroup(painter, inks);
    case Drawing::SqMacro: return DrawSqMacro(painter, inks);
    case Drawing::LampGreen: return DrawLampGreen(painter, inks);
    case Drawing::LampWhite: return DrawLampWhite(painter, inks);
    case Drawing::LampRed: return DrawLampRed(painter, inks);
    }
}

class DrawingEngine : public QIconEngine {
public:
    explicit DrawingEngine(Drawing which) : drawing(which) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal side = qMin(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.x() + (rect.width() - side) / 2,
                           rect.y() + (rect.height() - side) / 2);
        painter->scale(side / kSide, side / kSide);
        Draw(drawing, *painter, InksFor(mode));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap made(size);
        made.fill(Qt::transparent);
        QPainter painter(&made);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return made;
    }

    QIconEngine* clone() const override { return new DrawingEngine(drawing); }

private:
    Drawing drawing;
};

} // namespace

QIcon IconOf(Drawing drawing) {
    return QIcon(new DrawingEngine(drawing));
}

} // namespace qdw8
