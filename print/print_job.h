#pragma once

#include <cstdint>
#include <functional>
#include <string>

/// What every print does, whatever it prints.
namespace qdw8 {

struct PrintJob {
    std::int16_t fontId = 0; ///< text with the name of the font
    int lines = 0;           ///< lines of text that a page must have room for
    /// Draws all pages, from the measures that stand.
    std::function<void()> draw;
    /// What is told when it fails before there are pages, and on a page.
    std::string failure;
    std::string failureOnPage;
    /// File name of the data, whose name the user may save the pages under as a PDF file.
    std::string fileName;
    std::int16_t shownName = 0; ///< text with the one for what a window shows
};

/// Asks for the printer, draws the pages, shows them to a user who wants to look first, and prints
/// them. False: nothing was printed; a box has told that the user cancelled, or that it failed. A
/// user who saved the pages as a PDF file and then printed nothing has what he wanted: true.
bool RunPrint(const PrintJob& job);

/// `cmdPreviewPdf`, while the pages are looked at: asks for a file and writes it. A box tells when
/// that fails; nothing happens to the print.
void cmdPreviewPdf_Click();

void ResetPrintJob();

} // namespace qdw8
