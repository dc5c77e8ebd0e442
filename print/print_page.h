#pragma once

#include <cstdint>
#include <string>

/// A page, its measures, and texts at places on it. All lengths are millimetres from the upper left
/// corner of what the printer can print on; x grows to the right, y downward.
///
/// No text passes its own place: where it would run into what stands beside it, over the edge or
/// into the line below, it is printed in a smaller size.
namespace qdw8 {

extern std::int16_t& PrintLineH;  ///< height of the text "A", in whole mm: rules and foot
extern std::int16_t& PrintLineH2; ///< `PrintLineH` + 1: from one line of text to the next
extern std::int16_t& PrintLines;  ///< lines of either height on a page
extern std::int16_t& PrintLines2;
extern std::int16_t& PrintBottom; ///< bottom of the last of them
extern std::int16_t& PrintBottom2;
extern std::int16_t& PrintRight;  ///< right edge of everything printed
extern std::int16_t& PrintPageNo; ///< from 1

/// Takes the measures of the printer and the paper chosen, and the date and time that all pages
/// carry. `lines` lines of text must have room above the foot: a line takes 4 mm, and less on a
/// page that is too low for that.
void PrinterSetup(int lines);

struct TextLook {
    double points = 11.0;
    bool bold = false;
};

/// The room of a text: where it begins, and what it doesn't pass.
struct TextPlace {
    double x = 0.0;
    double y = 0.0;
    double right = 0.0;
    double height = 0.0;
};
inline constexpr double kPageRight = 1000.0; ///< as `right`: up to the right edge

/// The place in a line of text, 0 for the uppermost. On a page that is too narrow for the forms all
/// x move together.
TextPlace InLine(int line, double x, double right = kPageRight);

void PrintText(const TextPlace& place, const std::string& text, TextLook look = {});
/// Ends at the right edge.
void PrintAtRight(double y, double height, const std::string& text);
/// From the left edge of the forms to the right one.
void PrintRule(double y);
/// Date and time at the bottom of the page with a rule above them.
void PrintFoot();

/// Name of the system and of the data in the first line, and the file's name up to `right`.
void PrintTitle(std::int16_t dataNameId, const std::string& fileName, double right = kPageRight);
/// "Page:" and the number in a line.
void PrintPageNumber(int line);
/// Where the number in a line begins; the text of a page number is never longer than this.
double LeftOfPageNumber();

/// The next page of the document.
void PrintNextPage();

void ResetPrintPage();

} // namespace qdw8
