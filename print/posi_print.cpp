#include "print/posi_print.h"

#include "app/string_table.h"
#include "platform/platform.h"
#include "print/print_page.h"

#include <algorithm>
#include <array>

namespace qdw8 {
namespace {

constexpr int kFirstLine = 6; ///< of the rows
/// Of the head, in lines of `PrintLineH`: between two rules stand the heads of the columns.
constexpr int kUpperRule = 5;
constexpr int kLowerRule = 7;
/// A position begins only with so many lines left on the page.
constexpr int kLinesLeft = 7;
constexpr double kHeadPoints = 9.0;
constexpr double kCommentPoints = 8.0;
constexpr double kNumberX = 20.0;
constexpr double kNarrowColumn = 7.0; ///< of "VEL", "ACC", "WAY"
constexpr double kGap = 1.0;          ///< between a text and the next one

struct ColumnPlace {
    int column; ///< of the table
    int line;   ///< of the two lines of a position
    double x;
    double headX;
};
constexpr std::array<ColumnPlace, 20> kPlaces{{
    {0, 0, 30, 28},    {1, 0, 38, 36},  {2, 0, 46, 44},    {3, 0, 54, 54},    {4, 0, 80, 78},
    {5, 0, 88, 86},    {6, 0, 96, 94},  {7, 0, 104, 104},  {16, 0, 123, 121}, {17, 0, 139, 137},
    {18, 0, 155, 153}, //
    {8, 1, 30, 28},    {9, 1, 38, 36},  {10, 1, 46, 44},   {11, 1, 54, 54},   {12, 1, 80, 78},
    {13, 1, 88, 86},   {14, 1, 96, 94}, {15, 1, 104, 104}, {19, 1, 123, 121},
}};

/// Up to where a column may go: its neighbour in the line, or the edge.
double RightOf(std::size_t place, double ColumnPlace::*x) {
    const bool last = place + 1 == kPlaces.size() || kPlaces[place + 1].line != kPlaces[place].line;
    return last ? kPageRight : kPlaces[place + 1].*x - kGap;
}

std::string HeadText(int column) {
    const PosiColumn& it = ColumnOf(column);
    if (it.axis < 0) {
        return (column == kComment ? ":" : "") + ResText(it.label);
    }
    const std::string head = ResText(it.label) + std::to_string(it.axis + 1);
    return it.item == kPosi ? head + ResText(IsSet(DispMmFlag) ? 230 : 229) : head;
}

std::string DeviceLine(const PosiPrint& print, std::size_t axis) {
    return "AXIS" + std::to_string(axis + 1) + ":" + print.devices[axis] + "   /   AXIS" +
           std::to_string(axis + 2) + ":" + print.devices[axis + 1];
}

void PrintColumnHeads() {
    // Both lines of them have room between the rules.
    const double height = (kLowerRule - kUpperRule) * PrintLineH / 2.0;
    const auto inHeads = [height](int line, double x, double right) {
        TextPlace place = InLine(0, x, right);
        place.y = kUpperRule * PrintLineH + line * height;
        place.height = height;
        return place;
    };
    PrintText(inHeads(0, kNumberX, kPlaces[0].headX - kGap), ResText(248), {kHeadPoints});
    for (std::size_t i = 0; i < kPlaces.size(); ++i) {
        // Beside one another they are of one size.
        const double x = kPlaces[i].headX;
        const bool narrow = ColumnOf(kPlaces[i].column).item < kPosi;
        const double right = narrow ? x + kNarrowColumn : RightOf(i, &ColumnPlace::headX);
        PrintText(inHeads(kPlaces[i].line, x, right), HeadText(kPlaces[i].column), {kHeadPoints});
    }
}

void PrintPosition(const PosiPrintRow& row, int line) {
    PrintText(InLine(line, kNumberX, kPlaces[0].x - kGap), std::to_string(row.position));
    for (std::size_t i = 0; i < kPlaces.size(); ++i) {
        const ColumnPlace& place = kPlaces[i];
        const std::string& text = row.cells[static_cast<std::size_t>(place.column)];
        const TextPlace at = InLine(line + place.line, place.x, RightOf(i, &ColumnPlace::x));
        if (place.column == kComment) {
            PrintText(at, ":" + text, {kCommentPoints});
        } else {
            PrintText(at, text);
        }
    }
}

} // namespace

void PrintPosiHeader(const PosiPrint& print) {
    PrintTitle(202, print.fileName);
    PrintText(InLine(1, 10), DeviceLine(print, 0));
    PrintText(InLine(2, 10, LeftOfPageNumber() - kGap), DeviceLine(print, 2));
    PrintPageNumber(2);
    PrintRule(kUpperRule * PrintLineH);
    PrintColumnHeads();
    PrintRule(kLowerRule * PrintLineH);
    PrintFoot();
}

void PrintPosiPages(const PosiPrint& print) {
    int line = kFirstLine;
    bool headDue = true;
    for (const PosiPrintRow& row : print.rows) {
        if (line > kFirstLine && PrintLines2 - line < kLinesLeft) {
            PrintNextPage();
            headDue = true;
        }
        if (headDue) {
            PrintPosiHeader(print);
            line = kFirstLine;
            headDue = false;
        }
        PrintPosition(row, line);
        line += 2;
    }
}

} // namespace qdw8
