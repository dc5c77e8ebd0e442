#pragma once

#include <functional>
#include <string>

namespace qdw8 {

/// The printer: a page on which texts and lines are placed by coordinates in millimetres from the
/// upper left corner of the printable sheet (scale mode 6).
///
/// The first drawing operation begins a document. Any operation throws `Fault` when the printer
/// fails; the document is dropped then.
struct Printer {
    std::function<void(const std::string& name)> SetFontName;
    std::function<void(double points)> SetFontSize;
    std::function<void(bool bold)> SetFontBold;
    std::function<double()> ScaleWidth;                        ///< width of the sheet, mm
    std::function<double()> ScaleHeight;                       ///< height of the sheet, mm
    std::function<double(const std::string& text)> TextWidth;  ///< mm
    std::function<double(const std::string& text)> TextHeight; ///< mm
    /// Prints one line of text with its upper left corner at `x`, `y` (mm).
    std::function<void(double x, double y, const std::string& text)> Print;
    /// Draws a straight line of the thinnest visible width (mm).
    std::function<void(double x1, double y1, double x2, double y2)> Line;
    std::function<void()> NewPage;
    /// Ends the document and hands it to the printer.
    std::function<void()> EndDoc;
    /// Drops the document begun; does nothing when there is none.
    std::function<void()> KillDoc;
};

} // namespace qdw8
