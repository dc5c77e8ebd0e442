#include "print/sm_print.h"

#include "app/string_table.h"
#include "print/print_job.h"
#include "print/print_page.h"
#include "tables/sm_table.h"

#include <array>

namespace qdw8 {
namespace {

constexpr int kFirstLine = 5;
constexpr int kColumns = 3;
constexpr int kSlots = 9; ///< macros on a page
constexpr int kHeadLines = 2;
/// From the head of a macro to the one below: its head, its steps, and a blank line.
constexpr int kMacroLines = kHeadLines + kSmSteps + 1;
constexpr int kPageLines = kFirstLine + kSlots / kColumns * kMacroLines - 1;
constexpr std::array<double, kColumns> kOffsets{0, 62, 116};

struct Field {
    double x;
    double right;
};
constexpr Field kHead{18, 66};
constexpr Field kStep{18, 35.5};
constexpr Field kCommand{36, 57.5};
constexpr Field kData{58, 71.5};

void Print(int line, double offset, const Field& field, const std::string& text) {
    PrintText(InLine(line, offset + field.x, offset + field.right), text);
}

/// What is no command shows its number alone: it ends no macro.
std::string CommandText(const SmStep& step) {
    if (step.command == kNotInFile) {
        return "";
    }
    return IsKnownCommand(step.command) || step.command == kNeverWritten
               ? CommandOf(step).text
               : std::to_string(step.command);
}

std::string DataText(const SmStep& step) {
    return step.data == kNotInFile ? "" : std::to_string(step.data);
}

void PrintMacro(int number, int line, double offset) {
    Print(line, offset, kHead, "<SM No." + std::to_string(number) + ">");
    Print(line + 1, offset, kStep, "STEP");
    Print(line + 1, offset, kCommand, "COMMAND");
    Print(line + 1, offset, kData, "DATA");
    line += kHeadLines;
    int count = 0;
    for (const SmStep& step : SmCompare[static_cast<std::size_t>(number)]) {
        Print(line, offset, kStep, std::to_string(++count) + " :");
        Print(line, offset, kCommand, CommandText(step));
        Print(line, offset, kData, DataText(step));
        ++line;
    }
}

void PrintPages(const std::string& fileName) {
    for (int number = 1; number <= kMacros; ++number) {
        const int slot = (number - 1) % kSlots;
        if (slot == 0) {
            if (number > 1) {
                PrintNextPage();
            }
            PrintSmHeader(fileName);
        }
        PrintMacro(number, kFirstLine + slot / kColumns * kMacroLines,
                   kOffsets[static_cast<std::size_t>(slot % kColumns)]);
    }
}

} // namespace

void PrintSmHeader(const std::string& fileName) {
    PrintTitle(33, "   " + fileName, LeftOfPageNumber() - 1);
    PrintPageNumber(0);
    PrintRule(2 * PrintLineH);
    PrintFoot();
}

void PrintSmData(const std::string& fileName) {
    RunPrint({24, kPageLines, [&fileName] { PrintPages(fileName); }, ResText(397), ResText(397),
              fileName, 934});
}

} // namespace qdw8
