#pragma once

#include <functional>
#include <string>

namespace qdw8 {

/// Called behind each page that is ready, with their number so far. False: the user gives up, and
/// nothing of the document comes out; none of it leaves before all pages are ready.
using PageDone = std::function<bool(int pages)>;

/// The printer: a page on which texts and lines are placed by coordinates in millimetres from the
/// upper left corner of the part of the sheet that can be printed on (scale mode 6).
///
/// The first drawing operation begins a document. Any operation throws `Fault` when the printer
/// fails; the document is dropped then.
struct Printer {
    /// Names the document: in the queue of the printer and as the title of a PDF file.
    std::function<void(const std::string& title)> SetTitle;
    std::function<void(const std::string& name)> SetFontName;
    std::function<void(double points)> SetFontSize;
    std::function<void(bool bold)> SetFontBold;
    std::function<double()> ScaleWidth;                       ///< width that can be printed on, mm
    std::function<double()> ScaleHeight;                      ///< height, mm
    std::function<double(const std::string& text)> TextWidth; ///< mm
    /// Height that a line of text takes, mm: no ink of it passes above or below.
    std::function<double(const std::string& text)> TextHeight;
    /// Prints one line of text with its upper left corner at `x`, `y` (mm).
    std::function<void(double x, double y, const std::string& text)> Print;
    /// Draws a straight line of the thinnest visible width (mm).
    std::function<void(double x1, double y1, double x2, double y2)> Line;
    std::function<void()> NewPage;
    /// Ends the document and hands it to the printer. False: it was given up between two pages. A
    /// printing system that doesn't take it is a failure; what becomes of it there isn't known.
    std::function<bool(const PageDone& pageDone)> EndDoc;
    /// Writes the document into a PDF file, whole or not at all, and keeps it. False as above.
    std::function<bool(const std::string& path, const PageDone& pageDone)> SavePdf;
    /// Drops the document begun; does nothing when there is none.
    std::function<void()> KillDoc;
};

} // namespace qdw8
