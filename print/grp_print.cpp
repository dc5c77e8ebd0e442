#include "print/grp_print.h"

#include "app/string_table.h"
#include "print/print_job.h"
#include "print/print_page.h"
#include "tables/grp_table.h"

namespace qdw8 {
namespace {

constexpr int kFirstLine = 5;
constexpr int kSecondBlock = 51; ///< group at the head of the right block
constexpr double kBlockWidth = 80.0;
constexpr int kPageLines = kFirstLine + kSecondBlock;

struct Field {
    double x;
    double right;
};
constexpr Field kHeadNo{18, 35.5};
constexpr Field kHeadStart{36, 53.5};
constexpr Field kDash{54, 61.5};
constexpr Field kHeadEnd{62, 80};
constexpr Field kNo{22, 39.5};
constexpr Field kStart{40, 53.5};
constexpr Field kEnd{64, 80};

void Print(int line, double offset, const Field& field, const std::string& text) {
    PrintText(InLine(line, offset + field.x, offset + field.right), text);
}

/// A number that was never given stays blank, and so does one that the file lacks.
std::string Text(std::int16_t number) {
    return number == 0 || number == kNotInFile ? "" : std::to_string(number);
}

void PrintBlockHead(int line, double offset) {
    Print(line, offset, kHeadNo, "<GRP No>");
    Print(line, offset, kHeadStart, "<Start>");
    Print(line, offset, kDash, "---");
    Print(line, offset, kHeadEnd, "<End>");
}

void PrintGroup(int line, double offset, int number) {
    const GrpRow& group = GrpCompare[static_cast<std::size_t>(number)];
    Print(line, offset, kNo, "No." + std::to_string(number) + ":");
    Print(line, offset, kStart, Text(group.start));
    Print(line, offset, kDash, "---");
    Print(line, offset, kEnd, Text(group.end));
}

void PrintPage(const std::string& fileName) {
    PrintGrpHeader(fileName);
    int line = 0;
    double offset = 0;
    for (int number = 1; number <= kGroups; ++number) {
        if (number == 1 || number == kSecondBlock) {
            offset = number == 1 ? 0 : kBlockWidth;
            PrintBlockHead(kFirstLine, offset);
            line = kFirstLine + 1;
        }
        PrintGroup(line, offset, number);
        ++line;
    }
}

} // namespace

void PrintGrpHeader(const std::string& fileName) {
    PrintTitle(34, "   " + fileName);
    PrintRule(2 * PrintLineH);
    PrintFoot();
}

void PrintGrpData(const std::string& fileName) {
    RunPrint({24, kPageLines, [&fileName] { PrintPage(fileName); }, ResText(397), ResText(397),
              fileName, 833});
}

} // namespace qdw8
