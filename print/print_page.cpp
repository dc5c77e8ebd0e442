#include "print/print_page.h"

#include "app/number_forms.h"
#include "app/string_table.h"
#include "platform/platform.h"

#include <algorithm>
#include <cmath>

namespace qdw8 {
namespace {

struct State {
    std::int16_t lineH = 0;
    std::int16_t lineH2 = 0;
    std::int16_t lines = 0;
    std::int16_t lines2 = 0;
    std::int16_t bottom = 0;
    std::int16_t bottom2 = 0;
    std::int16_t right = 0;
    std::int16_t pageNo = 0;
    std::string stamp; ///< date and time of the document
};
State state;

constexpr double kPoints = 11.0;
constexpr int kSpacing = 4;      ///< of the lines on A4, mm
constexpr int kLeastSpacing = 2; ///< mm; text is hardly legible below
constexpr double kRightMargin = 10.0;
constexpr double kLeft = 10.0; ///< x of titles and rules
constexpr double kFileNameX = 70.0;
/// The x that the widest form needs.
constexpr double kFormWidth = 178.0;
/// Smaller than this nobody reads; what doesn't fit then is cut, and shows so.
constexpr double kLeastPoints = 4.5;
constexpr double kPointStep = 10.0; ///< sizes go by tenths of a point
/// Where the base line of a text lies in its height.
constexpr double kBaseLine = 0.86;
constexpr const char* kWidestPageNumber = "Page:9999";

Printer& Paper() {
    return ThePlatform().ThePrinter;
}

/// The measures for lines of `spacing` mm: "A" is measured at the largest size that gives them.
void Measure(int spacing) {
    double points = kPoints;
    do {
        Paper().SetFontSize(points);
        PrintLineH = ToInt16(Paper().TextHeight("A"));
        points -= 0.5;
    } while (PrintLineH > spacing - 1 && points > 0.5);
    PrintLineH = std::max<std::int16_t>(PrintLineH, 1);
    PrintLineH2 = static_cast<std::int16_t>(PrintLineH + 1);
    const double height = Paper().ScaleHeight();
    PrintLines = static_cast<std::int16_t>(height / PrintLineH);
    PrintLines2 = static_cast<std::int16_t>(height / PrintLineH2);
    PrintBottom = static_cast<std::int16_t>(PrintLines * PrintLineH);
    PrintBottom2 = static_cast<std::int16_t>(PrintLines2 * PrintLineH2);
}

double FootTop() {
    return PrintBottom - PrintLineH;
}

double OnPage(double x) {
    return std::min<double>(x * std::min(1.0, PrintRight / kFormWidth), PrintRight);
}

/// Takes the last character of a UTF-8 text away.
void DropLast(std::string& text) {
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U) {
        text.pop_back();
    }
    if (!text.empty()) {
        text.pop_back();
    }
}

/// Prints in the size in force so that all texts of a line stand on one base line, whatever their
/// sizes: that of the full size in the height of the line.
void PrintOnBaseLine(double x, double y, double height, double fullHeight,
                     const std::string& text) {
    const double lower = std::min(height, fullHeight) - Paper().TextHeight(text);
    Paper().Print(x, y + std::max(0.0, lower) * kBaseLine, text);
}

/// Height of a text in the size of the forms.
double FullHeight(const std::string& text) {
    Paper().SetFontSize(kPoints);
    return Paper().TextHeight(text);
}

/// Sets the size, at most `points`, at which the text fits, and shortens a text that fits at none.
std::string Fitted(std::string text, double points, double width, double height) {
    Paper().SetFontSize(points);
    const double wide = Paper().TextWidth(text);
    const double high = Paper().TextHeight(text);
    const auto scaled = [points](double scale) {
        return std::floor(points * scale * kPointStep) / kPointStep;
    };
    const double byHeight = height < high ? scaled(height / high) : points;
    const double byWidth = width < wide ? scaled(width / wide) : points;
    const double least = std::min(kLeastPoints, byHeight);
    Paper().SetFontSize(std::max(std::min(byHeight, byWidth), least));
    if (byWidth < least) {
        do {
            DropLast(text);
        } while (!text.empty() && Paper().TextWidth(text + "...") > width);
        text += "...";
    }
    return text;
}

} // namespace

std::int16_t& PrintLineH = state.lineH;
std::int16_t& PrintLineH2 = state.lineH2;
std::int16_t& PrintLines = state.lines;
std::int16_t& PrintLines2 = state.lines2;
std::int16_t& PrintBottom = state.bottom;
std::int16_t& PrintBottom2 = state.bottom2;
std::int16_t& PrintRight = state.right;
std::int16_t& PrintPageNo = state.pageNo;

void PrinterSetup(int lines) {
    Paper().SetFontBold(false);
    int spacing = kSpacing;
    Measure(spacing);
    while (lines * PrintLineH2 > FootTop() && spacing > kLeastSpacing) {
        Measure(--spacing);
    }
    PrintRight = ToInt16(Paper().ScaleWidth() - kRightMargin);
    PrintPageNo = 1;
    state.stamp = TimeText(ThePlatform().GetLocalTime());
}

TextPlace InLine(int line, double x, double right) {
    return {OnPage(x), static_cast<double>(line * PrintLineH2), OnPage(right),
            static_cast<double>(PrintLineH2)};
}

void PrintText(const TextPlace& place, const std::string& text, TextLook look) {
    if (text.empty()) {
        return;
    }
    Paper().SetFontBold(look.bold);
    const double full = FullHeight(text);
    const std::string fitted = Fitted(text, look.points, place.right - place.x, place.height);
    PrintOnBaseLine(place.x, place.y, place.height, full, fitted);
}

void PrintAtRight(double y, double height, const std::string& text) {
    Paper().SetFontBold(false);
    const double full = FullHeight(text);
    const std::string fitted = Fitted(text, kPoints, PrintRight - kLeft, height);
    PrintOnBaseLine(PrintRight - Paper().TextWidth(fitted), y, height, full, fitted);
}

void PrintRule(double y) {
    Paper().Line(kLeft, y, PrintRight, y);
}

void PrintFoot() {
    PrintRule(FootTop());
    const double top = (PrintLines - 1) * PrintLineH;
    PrintAtRight(top, Paper().ScaleHeight() - top, state.stamp);
}

void PrintTitle(std::int16_t dataNameId, const std::string& fileName, double right) {
    PrintText(InLine(0, kLeft, kFileNameX - 1), ResText(201) + " " + ResText(dataNameId),
              {kPoints, true});
    PrintText(InLine(0, kFileNameX, right), ResText(25) + fileName);
}

void PrintPageNumber(int line) {
    PrintAtRight(line * PrintLineH2, PrintLineH2, "Page:" + std::to_string(PrintPageNo));
}

double LeftOfPageNumber() {
    Paper().SetFontBold(false);
    Paper().SetFontSize(kPoints);
    return PrintRight - Paper().TextWidth(kWidestPageNumber);
}

void PrintNextPage() {
    Paper().NewPage();
    ++PrintPageNo;
}

void ResetPrintPage() {
    state = State{};
}

} // namespace qdw8
