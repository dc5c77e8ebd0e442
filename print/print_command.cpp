#include "print/print_command.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "parameter/para_file.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"
#include "position/check_result.h"
#include "position/posi_check.h"
#include "position/posi_command.h"
#include "position/posi_table.h"
#include "print/para_print.h"
#include "print/posi_print.h"
#include "print/posi_print_data.h"
#include "print/print_job.h"
#include "print/print_select.h"

#include <exception>
#include <optional>

namespace qdw8 {
namespace {

/// The positions on screen. Nothing: the check refused them and has told why.
std::optional<PosiPrint> StageGrid() {
    if (Check_flgdLineNo() != 0) {
        return std::nullopt;
    }
    const RangesBefore before;
    const auto [first, last] = ChosenPrintRange();
    PosiFirst = static_cast<std::int16_t>(first);
    PosiLast = static_cast<std::int16_t>(last);
    std::optional<PosiPrint> staged;
    try {
        switch (PosiDataCheck3()) {
        case PosiCheck::Committed: staged = StageShownPositions(); break;
        case PosiCheck::Faulted: ShowTexts({397, 396}); break;
        default: break;
        }
    } catch (const std::exception&) {
        before.putBack();
        throw;
    }
    before.putBack();
    return staged;
}

/// False: nothing was printed, and the user knows why.
bool PrintPositions() {
    const auto staged =
        PrintSelect.optPrintPosi == 1 ? StagePosiFile(PrintSelect.posiPath) : StageGrid();
    if (!staged) {
        return false;
    }
    const bool printed = RunPrint({399, kPosiPageLines, [&staged] { PrintPosiPages(*staged); },
                                   TextLines({397, 396}),
                                   Lines({ResText(397) + "(3)", ResText(396)}), staged->path, 407});
    ClearPosiErrors();
    return printed;
}

void PrintParameters() {
    if (PrintSelect.optPrintPara == 1) {
        if (ReadParaFileWithTries(PrintSelect.paraPath) != 0) {
            return;
        }
    } else if (IsSet(ParaLoadedFlag)) {
        FillRowTable(kShownName);
    } else {
        ShowTexts({7, 8});
        return;
    }
    PrintParaData(CellText(ParaRowTable.at(0, kRowFileName)));
}

} // namespace

void PrintPosiCommand() {
    const PositionCommand command;
    try {
        LoadPrintSelect();
        if (!ShowModal(Screens().frmPrintSelect) || !PrintSelect.accepted) {
            return;
        }
        if (PrintSelect.chkPrintPosi && !PrintPositions()) {
            return;
        }
        if (PrintSelect.chkPrintPara) {
            PrintParameters();
        }
    } catch (const std::exception&) {
        ShowTexts({397, 396});
    }
}

} // namespace qdw8
