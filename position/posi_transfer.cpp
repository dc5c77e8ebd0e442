#include "position/posi_transfer.h"

#include "app/number_forms.h"
#include "link/ct_commands.h"
#include "link/exchange.h"
#include "link/port.h"
#include "link/receiver.h"
#include "platform/fault.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <array>
#include <cstdint>
#include <string>
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

} // namespace

LineResult ReadPosidataFromCt() {
    // What runs out of the waits, as a save before the end of the program, may move the range.
    const std::int16_t first = PosiFirst;
    const std::int16_t last = PosiLast;
    const int count = last - first + 1;
    std::vector<RowNumbers> rows;
    const auto readRow = [&](int index) -> std::int16_t {
        if (ReadPosiRow(first + index) != 0) {
            return 1;
        }
        try {
            rows.push_back(CutRow(ReplyText));
        } catch (const Fault&) {
            ShowWrongData();
            return 1;
        }
        return 0;
    };
    const LineResult result = ReadMany(count, {count + 1, 368, true}, readRow);
    CloseCtPort();
    PosiFirst = first;
    PosiLast = last;
    if (result != LineResult::Done) {
        return result;
    }
    auto position = static_cast<std::size_t>(first);
    for (const RowNumbers& numbers : rows) {
        // The comment never travels: its cell keeps what the last file left there.
        for (std::size_t column = 0; column < kComment; ++column) {
            PosiStage[position][column + 1] = numbers[column];
        }
        ++position;
    }
    return result;
}

} // namespace qdw8
