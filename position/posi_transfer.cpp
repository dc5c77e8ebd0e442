#include "position/posi_transfer.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/Module3Tusin.h"
#include "link/ct_commands.h"
#include "platform/fault.h"
#include "position/posi_table.h"

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

} // namespace qdw8
