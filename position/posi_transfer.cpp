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

/// The reply repeats the command in front of the row.
constexpr std::size_t kEcho = 3;

using RowNumbers = std::array<double, kComment>;

/// Cuts a reply into its fields. Faults on a field that is no hexadecimal number: a figure that
/// can't be read is never guessed.
RowNumbers CutRow(const std::string& reply) {
    RowNumbers numbers{};
    for (std::size_t column = 0; column < kComment; ++column) {
        const PosiColumn& kind = ColumnOf(static_cast<int>(column));
        numbers[column] = HexValue(Mid(reply, kEcho + kind.place, kind.width));
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
