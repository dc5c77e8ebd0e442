#include "position/posi_transfer.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/Module3Tusin.h"
#include "link/ct_commands.h"
#include "link/supervision.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "position/controller_settings.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_command.h"
#include "position/posi_file.h"
#include "position/posi_table.h"

#include <exception>
#include <vector>

namespace qdw8 {
namespace {

/// Where a field of a row stands in the reply to `0RP`, counted from 1, and how wide it is.
struct Field {
    std::size_t from;
    std::size_t width;
};

constexpr Field FieldOf(std::size_t column) {
    switch (column) {
    case kItpl: return {43, 1};
    case kOut: return {44, 1};
    case kSm: return {45, 2};
    default: break;
    }
    constexpr std::size_t kAxisWidth = 9;
    const std::size_t block = 7 + kAxisWidth * (column / kAxisColumns);
    switch (column % kAxisColumns) {
    case kVel: return {block, 2};
    case kAcc: return {block + 2, 1};
    case kWay: return {block + 3, 1};
    default: return {block + 4, 5};
    }
}

using RowNumbers = std::array<double, kComment>;

/// Cuts a reply into its fields. Faults on a field that is no hexadecimal number: a figure that
/// can't be read is never guessed.
RowNumbers CutRow(const std::string& reply) {
    RowNumbers numbers{};
    for (std::size_t column = 0; column < kComment; ++column) {
        const Field field = FieldOf(column);
        numbers[column] = HexValue(Mid(reply, field.from, field.width));
    }
    return numbers;
}

/// The rows of the working range, one exchange each. Stops early when cancelled.
bool ReadRows(std::vector<RowNumbers>& rows) {
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        if (IsSet(TransferCancelFlag)) {
            return true;
        }
        if (ReadPosiRow(position) != 0) {
            return false;
        }
        PosiFrameText[static_cast<std::size_t>(position) - 1] = ReplyText;
        try {
            rows.push_back(CutRow(ReplyText));
        } catch (const Fault&) {
            ShowWrongData();
            return false;
        }
        SetTranceValue(static_cast<int>(rows.size()));
    }
    return true;
}

/// Data in the table can be saved first. False: the command ends here.
bool OfferToSave() {
    if (!PosiTableHasData()) {
        return true;
    }
    switch (AskBox(ResText(369), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes:
        SavePosiFileAs();
        // What the user wanted to keep is not overwritten because saving it was broken off.
        return !IsSet(SaveCancelledFlag);
    case BoxAnswer::No: return true;
    default: return false;
    }
}

/// Range and confirmation. False: the command ends here.
bool AskRange() {
    TransferRunFlag = kSet;
    Screens().frmSelectPosiNo2();
    if (IsSet(RangeCancelFlag)) {
        RangeCancelFlag = kClear;
        return false;
    }
    return AskBox(ResText(370), BoxButtons::OkCancel) == BoxAnswer::Ok;
}

void ShowWhatCame() {
    PosiStageToTable();
    ConvertTableToMm();
    QdDataHyoji_3();
    ShowPosiFileName(ResText(374));
    PosiDirtyFlag = kClear;
}

void ReadChosenRange(const RangesBefore& before) {
    const PollHeld held;
    TransferCancelFlag = kClear;
    SavedGridFirst = GridFirst;
    SavedGridLast = GridLast;
    GridFirst = PosiFirst;
    GridLast = PosiLast;
    GridRowCount = static_cast<std::int16_t>(GridLast - GridFirst + 1);
    GoOnLine();
    const std::int16_t compared = MatchControllerSettings();
    if (compared != 0) {
        ShowBox(compared == 1 ? TextLines({108, 425}) : ResText(108));
        CloseCtPort();
        return;
    }
    const std::int16_t result = ReadPosidataFromCt();
    if (result == 0) {
        ShowWhatCame();
        return;
    }
    if (result == 2) {
        ShowTexts({425});
    }
    before.putBack();
}

void Read() {
    if (!OfferToSave()) {
        return;
    }
    const RangesBefore before;
    if (!AskRange()) {
        before.putBack();
        return;
    }
    try {
        ReadChosenRange(before);
    } catch (const std::exception&) {
        before.putBack();
        throw;
    }
}

} // namespace

std::int16_t ReadPosidataFromCt() {
    TransferCancelFlag = kClear;
    TransferRunFlag = kSet;
    ShowTrance(PosiLast - PosiFirst + 2, ResText(368));
    std::vector<RowNumbers> rows;
    const bool good = ReadRows(rows);
    CloseCtPort();
    UnloadTrance();
    TransferRunFlag = kClear;
    if (!good) {
        return 1;
    }
    if (IsSet(TransferCancelFlag)) {
        return 2;
    }
    auto position = static_cast<std::size_t>(PosiFirst);
    for (const RowNumbers& numbers : rows) {
        // The comment never travels: its cell keeps what the last file left there.
        for (std::size_t column = 0; column < kComment; ++column) {
            PosiStage[position][column + 1] = numbers[column];
        }
        ++position;
    }
    return 0;
}

void ReadFromCt() {
    const PositionCommand command;
    try {
        Read();
    } catch (const std::exception&) {
        UnloadTrance();
        CloseCtPort();
        ShowTexts({108});
    }
    TransferRunFlag = kClear;
}

} // namespace qdw8
