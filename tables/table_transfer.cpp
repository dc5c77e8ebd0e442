#include "tables/table_transfer.h"

#include "app/number_forms.h"
#include "link/exchange.h"
#include "link/receiver.h"
#include "platform/fault.h"

#include <string>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kRowDigits = 2;
/// A reply repeats the command and the row's number in front of the numbers; counted from 1.
constexpr std::size_t kFirstNumber = 6;

void CutReply(const SmallTable& table, Numbers& numbers) {
    const auto digits = static_cast<std::size_t>(table.line.digits);
    for (std::size_t field = 0; field < static_cast<std::size_t>(table.fields); ++field) {
        numbers.push_back(ToInt16(HexValue(Mid(ReplyText, kFirstNumber + field * digits, digits))));
    }
}

std::string RowText(const SmallTable& table, const Numbers& numbers, int row) {
    std::string text = HexField(row, kRowDigits);
    for (int field = 0; field < table.fields; ++field) {
        text += HexField(numbers[IndexOf(table, row, field)], table.line.digits);
    }
    if (text.size() != static_cast<std::size_t>(kRowDigits + table.fields * table.line.digits)) {
        throw Fault("a number has no form on the line");
    }
    return text;
}

} // namespace

LineResult ReadTableFromCt(const SmallTable& table) {
    Numbers numbers;
    bool wrongData = false;
    const auto readRow = [&](int index) -> std::int16_t {
        if (table.line.read(index + 1) != 0) {
            return 1;
        }
        try {
            CutReply(table, numbers);
        } catch (const Fault&) {
            wrongData = true;
            return 1;
        }
        return 0;
    };
    const LineResult result = ReadMany(table.rows, table.line.reading, readRow);
    if (wrongData) {
        ShowWrongData();
    }
    if (result == LineResult::Done) {
        if (table.settle != nullptr) {
            table.settle(numbers);
        }
        table.put(Held::Compare, numbers);
    }
    return result;
}

std::vector<LineWrite> TakeTableFrames(const SmallTable& table) {
    const SmallTable::Line& line = table.line;
    const Numbers numbers = table.take(Held::Shown);
    std::vector<LineWrite> frames;
    for (int row = 1; row <= table.rows; ++row) {
        const std::string text = RowText(table, numbers, row);
        const bool compared = row < table.rows || line.lastCompared;
        frames.push_back({[write = line.write, text] { return write(text); },
                          compared ? line.writeWord + text.substr(0, kRowDigits) : ""});
    }
    frames.push_back({line.commit, line.committed});
    return frames;
}

LineResult WriteTableToCt(const SmallTable& table, const std::vector<LineWrite>& frames) {
    return SendMany(frames, table.line.writing);
}

} // namespace qdw8
