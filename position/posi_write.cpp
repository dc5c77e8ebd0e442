#include "position/posi_write.h"

#include "app/number_forms.h"
#include "link/ct_commands.h"
#include "link/exchange.h"
#include "link/line_state.h"
#include "link/port.h"
#include "platform/fault.h"
#include "position/check_result.h"
#include "position/grid_history.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

namespace qdw8 {
namespace {

constexpr std::size_t kRowLength = 43;

constexpr std::size_t kNumberLength = 3;

bool IsWholeRow(const std::string& row) {
    return row.size() == kRowLength && row.find_first_not_of("0123456789ABCDEF") == row.npos;
}

} // namespace

PosiFrames TakePosiFrames() {
    PosiFrames frames{{}, PosiLast - PosiFirst + 1};
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        const auto index = static_cast<std::size_t>(position) - 1;
        if (IsSet(PosiRowError[index])) {
            continue;
        }
        const std::string row = PosiRowText(position);
        if (!IsWholeRow(row)) {
            throw Fault("a row has no form on the line");
        }
        // The echo of the position number is the whole verification.
        frames.writes.push_back(
            {[row] { return WritePosiRow(row); }, "0WP" + row.substr(0, kNumberLength)});
    }
    return frames;
}

std::string PosiRowText(std::int16_t position) {
    const PosiRow& row = PosiTable[static_cast<std::size_t>(position)];
    std::string text = HexField(position, 3);
    for (std::size_t column = 0; column < kComment; ++column) {
        text += HexField(ToInt32(row.number[column]),
                         static_cast<int>(ColumnOf(static_cast<int>(column)).width));
    }
    return text;
}

LineResult WritePosidataToCt(const PosiFrames& frames) {
    ControllerTakesRows();
    const LineResult result = SendMany(frames.writes, {frames.rows, 383, /*cancel=*/true});
    CloseCtPort();
    if (result == LineResult::WrongEcho) {
        CommErrorFlag = kSet; // the answer to another row: this line is out of step
    }
    return result;
}

} // namespace qdw8
