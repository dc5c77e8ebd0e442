#pragma once

#include <QSizeF>

class QPainter;

namespace qdw8 {

// The document that is being printed, as it would come out: for a look at it before it goes.

int PrintedPages();
/// Width and height of the sheet, mm.
QSizeF SheetMm();
/// Draws a page, from 0, on a painter whose unit is one millimetre and whose origin is the upper
/// left corner of the sheet.
void DrawPrintedPage(QPainter& painter, int page);

} // namespace qdw8
