#include "tables/small_table.h"

#include "app/number_forms.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace qdw8 {
namespace {

Numbers Settled(const SmallTable& table, Held copy) {
    Numbers numbers = table.take(copy);
    if (table.settle != nullptr) {
        table.settle(numbers);
    }
    return numbers;
}

} // namespace

std::size_t IndexOf(const SmallTable& table, int row, int field) {
    return static_cast<std::size_t>((row - 1) * table.fields + field);
}

std::int16_t ReasonOf(const SmallTable& table, int row, int field) {
    const std::size_t index = IndexOf(table, row, field);
    return index < table.state.reasons.size() ? table.state.reasons[index] : std::int16_t{0};
}

std::optional<TablePlace> FirstRefused(const SmallTable& table) {
    const Numbers& reasons = table.state.reasons;
    const auto first = std::find_if(reasons.begin(), reasons.end(),
                                    [](std::int16_t reason) { return reason != 0; });
    if (first == reasons.end()) {
        return std::nullopt;
    }
    const auto index = static_cast<int>(first - reasons.begin());
    return TablePlace{index / table.fields + 1, index % table.fields};
}

void CopyTable(const SmallTable& table, Held from, Held to) {
    const Numbers numbers = Settled(table, from);
    table.put(from, numbers);
    table.put(to, numbers);
}

std::string DifferingRows(const SmallTable& table) {
    const Numbers shown = Settled(table, Held::Shown);
    const Numbers compare = Settled(table, Held::Compare);
    std::string list;
    for (int row = 1; row <= table.rows; ++row) {
        const auto begin = static_cast<std::ptrdiff_t>(IndexOf(table, row, 0));
        if (!std::equal(shown.begin() + begin, shown.begin() + begin + table.fields,
                        compare.begin() + begin)) {
            list += std::to_string(row) + ",";
        }
    }
    return list;
}

void TellWindow(const SmallTable& table) {
    if (const auto& look = Screens().*table.look) {
        look();
    }
}

std::int16_t NumberOfField(const std::string& text) {
    constexpr double kHighest = std::numeric_limits<std::int16_t>::max();
    const std::optional<double> number = NumberOfCell(text);
    const bool taken =
        number && *number >= 0 && *number <= kHighest && *number == std::floor(*number);
    return taken ? ToInt16(*number) : std::int16_t{0};
}

} // namespace qdw8
