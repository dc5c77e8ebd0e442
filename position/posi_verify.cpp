#include "position/posi_verify.h"

#include "app/boxes.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/port.h"
#include "position/check_result.h"
#include "position/grid_display.h"
#include "position/posi_check.h"
#include "position/posi_columns.h"
#include "position/posi_command.h"
#include "position/posi_reader.h"
#include "position/posi_table.h"
#include "position/posi_transfer.h"

#include <algorithm>
#include <exception>
#include <optional>

namespace qdw8 {

namespace {

struct State {
    std::int16_t first = 0;
    std::int16_t last = 0;
};
State state;

/// Marks what differs between the table and `PosiStage` in the working range.
void MarkDifferences() {
    ClearPosiErrors();
    PosiErrorCount = 0;
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        const auto row = static_cast<std::size_t>(position);
        bool differs = false;
        for (std::size_t column = 0; column < kComment; ++column) {
            if (!IsOffColumn(static_cast<int>(column)) &&
                NumberOf(PosiStage[row][column + 1]) != PosiTable[row].number[column]) {
                MarkPosiCell(column, position);
                differs = true;
            }
        }
        PosiErrorCount = static_cast<std::int16_t>(PosiErrorCount + (differs ? 1 : 0));
    }
}

/// Compares and shows the outcome; `with` names the other side when all is equal.
void ShowOutcome(const std::string& with) {
    MarkDifferences();
    if (PosiErrorCount > 0) {
        SyogoMode = kSet;
        ShowModal(Screens().frmSyogoKekka);
    } else {
        ShowBox(Lines({with, "", ResText(826)}));
    }
    ClearPosiErrors();
    PosiErrorCount = 0;
}

void VerifyWithFile() {
    if (Check_flgdLineNo() != 0) {
        return;
    }
    TakeWholeGrid();
    if (!TableTakesGrid(397)) {
        return;
    }
    const auto file = AskFileToOpen(kPosiFile, 350);
    if (!file || !ReadPosiFileWithTries(file->path)) {
        return;
    }
    const bool overlap = CompareFileRange() == 0;
    if (!AskRange([overlap] { Screens().frmSelectPosiNo4(overlap); }) || !overlap) {
        return;
    }
    ShowOutcome(ResText(352) + file->path + ResText(353));
}

void VerifyWithController() {
    if (Check_flgdLineNo() != 0) {
        return;
    }
    if (!AskRange(Screens().frmSelectPosiNo3) || !TableTakesGrid(397)) {
        return;
    }
    const LineBatch batch;
    if (OpenCtPortForBatch() != 0) {
        return;
    }
    if (CheckCtStatus() != 0) {
        CommErrorFlag = kClear;
        return;
    }
    if (ReadPosidataFromCt() == LineResult::Done) {
        ShowOutcome(ResText(354));
    }
}

/// A verify from its start to its end; a fault in it ends it with the box `faultId`.
void Run(void (*verify)(), std::int16_t faultId) {
    const PositionCommand command;
    const WholeGridAfter wholeGrid;
    try {
        verify();
    } catch (const std::exception&) {
        ClearPosiErrors();
        ShowTexts({faultId});
    }
}

} // namespace

std::int16_t& VerifyFirst = state.first;
std::int16_t& VerifyLast = state.last;

std::int16_t CompareFileRange() {
    if (FileFirst > GridFirst) {
        if (FileFirst > GridLast) {
            return 1;
        }
        VerifyFirst = FileFirst;
    } else {
        if (FileLast < GridFirst) {
            return 1;
        }
        VerifyFirst = GridFirst;
    }
    VerifyLast = std::min(FileLast, GridLast);
    return 0;
}

void PosiDataFileShogo2() {
    Run(VerifyWithFile, 484);
}

void PosiDataCtShogo() {
    Run(VerifyWithController, 108);
}

void VerifyChoose() {
    const PositionCommand command;
    if (Check_flgdLineNo() != 0) {
        return;
    }
    std::int16_t choice = 0;
    ShowModal([&choice] { choice = Screens().frmDataShogo(); });
    switch (choice) {
    case 1: PosiDataFileShogo2(); break;
    case 2: PosiDataCtShogo(); break;
    default: break;
    }
}

void ResetVerify() {
    state = State{};
}

} // namespace qdw8
