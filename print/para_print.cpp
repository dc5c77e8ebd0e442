#include "print/para_print.h"

#include "app/string_table.h"
#include "parameter/para_controls.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"
#include "platform/fault.h"
#include "print/print_job.h"
#include "print/print_page.h"

#include <array>
#include <optional>

namespace qdw8 {
namespace {

constexpr double kLabelX = 20.0;
constexpr double kFileNameX = 80.0;
constexpr std::array<double, kAxes + 1> kAxisX{80, 105, 130, 155, 180};
constexpr double kSingleX = 120.0;
constexpr double kGap = 2.0; ///< a character between two values
constexpr int kFirstLine = 3;

/// A line of the page.
enum class Line : std::uint8_t {
    Blank,
    Title,     ///< of a section
    AxisTitle, ///< of a section whose values stand below the heads of the axes
    AxisHeads, ///< these heads alone
    Single,    ///< an item held once
    PerAxis    ///< an item of each axis
};
struct PageLine {
    Line line = Line::Blank;
    const char* label = "";
    ParaRow row = kRowFileName;
};
constexpr std::array kPage{
    PageLine{Line::AxisTitle, "<< HOMING PARAMETER >>"},
    PageLine{Line::PerAxis, " 1.OFFSET:", kRowOFFSET},
    PageLine{Line::PerAxis, " 2.PUSH:", kRowPUSH},
    PageLine{Line::PerAxis, " 3.VEL:", kRowVEL},
    PageLine{Line::PerAxis, " 4.OFSVEL:", kRowOFSVEL},
    PageLine{Line::PerAxis, " 5.PUSHVEL:", kRowPUSHVEL},
    PageLine{Line::PerAxis, " 6.SEQ:", kRowSEQ},
    PageLine{},
    PageLine{Line::AxisTitle, "<< AXIS PARAMETER >>"},
    PageLine{Line::PerAxis, " 1.STROKE:", kRowSTROKE},
    PageLine{Line::PerAxis, " 2.LEAD:", kRowLEAD},
    PageLine{Line::PerAxis, " 3.PULSE:", kRowPULSE},
    PageLine{Line::PerAxis, " 4.JOG VEL:", kRowJOGVEL},
    PageLine{Line::PerAxis, " 5.Auto Drive:", kRowAUTODRIVE},
    PageLine{Line::PerAxis, " 6.TYPE:", kRowTYPE},
    PageLine{Line::PerAxis, " 7.Actuator:", kRowActuator},
    PageLine{},
    PageLine{Line::AxisTitle, "<< PG PARAMETER >>"},
    PageLine{Line::PerAxis, " 1.FUNCTION:", kRowFUNCTION},
    PageLine{Line::PerAxis, " 2.ALM:", kRowALM},
    PageLine{},
    PageLine{Line::Title, "<< Etc PARAMETER >>"},
    PageLine{Line::Single, " 1. HOME OUT:", kRowHOME_OUT},
    PageLine{Line::Single, " 2. ALM CODE:", kRowALM_CODE},
    PageLine{Line::Single, " 3. GRP ENABLE:", kRowGRP_ENABLE},
    PageLine{Line::Single, " 4. SM TIMEOUT:", kRowSM_TIMEOUT},
    PageLine{Line::Single, " 5. SM TIMER:", kRowSM_TIMER},
    PageLine{},
    PageLine{Line::Title, "<< SP Parameter >>"},
    PageLine{Line::Single, " 1. AXIS:", kRowAXIS},
    PageLine{Line::Single, " 2. AUTO HOME:", kRowAUTO_HOME},
    PageLine{Line::AxisHeads},
    PageLine{Line::PerAxis, " 3. PG TIMER:", kRowPG_TIMER},
    PageLine{Line::PerAxis, " 4. LS TIMER:", kRowLS_SERCH_TIMER},
    PageLine{Line::PerAxis, " 5. SOFT LIMIT:", kRowSOFT_LIMIT},
    PageLine{Line::PerAxis, " 6. M0 ENABLE:", kRowM0_DISABLE},
    PageLine{Line::Single, " 7. STOP/PAUSE:", kRowSTOP_PAUSE},
};
constexpr int kPageLines = kFirstLine + static_cast<int>(kPage.size());

/// The number of a cell; nothing for a text that is none.
std::optional<double> NumberIn(const ParaCell& cell) {
    try {
        return CellNumber(cell);
    } catch (const Fault&) {
        return std::nullopt;
    }
}

/// The value of an item as the window shows it: a choice by its text, blank if it is none.
std::string ValueText(ParaRow row, std::size_t column) {
    const ParaCell& cell = ParaRowTable.at(column, row);
    const auto choices = ParaListRows(row);
    const auto number = NumberIn(cell);
    if (choices.empty() || !number) {
        return CellText(cell);
    }
    for (const ParaListRow& choice : choices) {
        if (choice.value == *number) {
            return ResText(choice.textId);
        }
    }
    return "";
}

/// The axes by the mask that stands among the parameters printed.
bool IsAxisOff(std::size_t axis) {
    const auto mask = NumberIn(ParaRowTable.at(0, kRowAXIS));
    return mask && *mask >= 0 && *mask < 16 && (static_cast<unsigned>(*mask) >> axis & 1U) == 0;
}

void PrintAtAxis(int line, std::size_t axis, const std::string& text) {
    PrintText(InLine(line, kAxisX[axis], kAxisX[axis + 1] - kGap), text);
}

void PrintValues(int line, ParaRow row) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        PrintAtAxis(line, axis,
                    !IsAxisOff(axis) ? ValueText(row, axis)
                    : row == kRowSEQ ? "--"
                                     : "-");
    }
}

void PrintAxisHeads(int line) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        PrintAtAxis(line, axis, "< AXIS " + std::to_string(axis + 1) + " >");
    }
}

void PrintPageLine(int line, const PageLine& it) {
    PrintText(InLine(line, kLabelX, kAxisX[0] - kGap), it.label);
    switch (it.line) {
    case Line::Blank:
    case Line::Title: break;
    case Line::AxisTitle:
    case Line::AxisHeads: PrintAxisHeads(line); break;
    case Line::Single: PrintText(InLine(line, kSingleX), ValueText(it.row, 0)); break;
    case Line::PerAxis: PrintValues(line, it.row); break;
    }
}

void PrintPage(const std::string& fileName) {
    PrintText(InLine(0, kLabelX, kFileNameX - kGap), "QD-W8   Parameters", {11.0, true});
    PrintText(InLine(0, kFileNameX), ResText(25) + fileName);
    int line = kFirstLine;
    for (const PageLine& it : kPage) {
        PrintPageLine(line, it);
        ++line;
    }
    PrintFoot();
}

} // namespace

void PrintParaData(const std::string& fileName) {
    RunPrint({24, kPageLines, [&fileName] { PrintPage(fileName); }, ResText(397), ResText(397),
              fileName, 12});
}

} // namespace qdw8
