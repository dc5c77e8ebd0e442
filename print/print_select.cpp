#include "print/print_select.h"

#include "app/boxes.h"
#include "app/file_questions.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "platform/platform.h"
#include "position/grid_display.h"
#include "position/posi_table.h"

#include <cmath>

namespace qdw8 {

PrintSelectForm PrintSelect;

namespace {

constexpr FileKind kParameterFile{1827, "pmt"};

/// The position number that a text is; 0 if it is none.
int PositionIn(const std::string& text) {
    const auto number = NumberOfCell(text);
    const bool good =
        number && *number == std::trunc(*number) && *number >= 1 && *number <= kLastPosition;
    return good ? static_cast<int>(*number) : 0;
}

bool PrintsGrid() {
    return PrintSelect.chkPrintPosi && PrintSelect.optPrintPosi == 0;
}

bool RangeGood() {
    const auto [first, last] = ChosenPrintRange();
    return first != 0 && last != 0 && first <= last && first >= GridFirst && last <= GridLast;
}

bool LacksFile(bool chosen, int source, const std::string& path) {
    return chosen && source == 1 && path.empty();
}

bool LacksFile() {
    return LacksFile(PrintSelect.chkPrintPosi, PrintSelect.optPrintPosi, PrintSelect.posiPath) ||
           LacksFile(PrintSelect.chkPrintPara, PrintSelect.optPrintPara, PrintSelect.paraPath);
}

void Pick(const FileKind& kind, std::int16_t titleId, std::string& path, std::string& label) {
    if (const auto chosen = AskFileToOpen(kind, titleId)) {
        path = chosen->path;
        label = chosen->title;
    }
}

} // namespace

void LoadPrintSelect() {
    const bool data = GridShowsItsRange();
    PrintSelect = PrintSelectForm{};
    PrintSelect.chkPrintPosi = true;
    PrintSelect.optPrintPosi = data ? 0 : 1;
    PrintSelect.txtPrintStartPosi = data ? std::to_string(GridFirst) : ResText(1811);
    PrintSelect.txtPrintEndPosi = data ? std::to_string(GridLast) : ResText(1812);
    PrintSelect.lblPrintPosiName = ResText(1822);
    PrintSelect.lblPrintParaName = ResText(1821);
}

bool PrintSetEnabled() {
    return (PrintSelect.chkPrintPosi || PrintSelect.chkPrintPara) && !LacksFile();
}

std::string LeavePrintRange(bool end, const std::string& text) {
    const int position = PositionIn(text);
    const int start = PositionIn(PrintSelect.txtPrintStartPosi);
    const bool good = text.empty() || (position != 0 && (!end || position >= start));
    if (!good) {
        ThePlatform().Beep();
    }
    std::string& box = end ? PrintSelect.txtPrintEndPosi : PrintSelect.txtPrintStartPosi;
    box = good ? text : "";
    return box;
}

void cmdSelectPosiFile_Click() {
    Pick(kPosiFile, 1828, PrintSelect.posiPath, PrintSelect.lblPrintPosiName);
}

void cmdSelectParaFile_Click() {
    Pick(kParameterFile, 1826, PrintSelect.paraPath, PrintSelect.lblPrintParaName);
}

bool cmdPrintSet_Click() {
    if (PrintsGrid() && !RangeGood()) {
        ShowTexts({1823});
        return false;
    }
    if (LacksFile()) {
        ShowTexts({1824});
        return false;
    }
    PrintSelect.accepted = true;
    return true;
}

PrintRange ChosenPrintRange() {
    return {PositionIn(PrintSelect.txtPrintStartPosi), PositionIn(PrintSelect.txtPrintEndPosi)};
}

} // namespace qdw8
