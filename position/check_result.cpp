#include "position/check_result.h"

namespace qdw8 {

namespace {

struct State {
    std::array<Flag, kPosiRows> rowError{};
    std::array<std::array<Flag, kPosiRows>, 20> cellError{};
    std::int16_t errorCount = 0;
    std::int16_t syogoMode = 0;
};
State state;

} // namespace

std::array<Flag, kPosiRows>& PosiRowError = state.rowError;
std::array<std::array<Flag, kPosiRows>, 20>& PosiCellError = state.cellError;
std::int16_t& PosiErrorCount = state.errorCount;
std::int16_t& SyogoMode = state.syogoMode;

void ClearPosiErrors() {
    for (auto& column : PosiCellError) {
        column.fill(kClear);
    }
}

void MarkPosiCell(std::size_t column, std::int16_t position) {
    const auto row = static_cast<std::size_t>(position);
    PosiCellError[column][row] = kSet;
    PosiCellError[kSomeCell][row] = kSet;
}

std::vector<ResultRow> ResultRows() {
    std::vector<ResultRow> rows;
    for (std::int16_t position = PosiFirst; position <= kLastPosition; ++position) {
        const auto row = static_cast<std::size_t>(position);
        if (!IsSet(PosiCellError[kSomeCell][row])) {
            continue;
        }
        ResultRow result{position, {}};
        for (std::size_t column = 0; column < kComment; ++column) {
            result.failed.set(column, IsSet(PosiCellError[column][row]));
        }
        rows.push_back(result);
    }
    return rows;
}

void ResetCheckResult() {
    state = State{};
}

} // namespace qdw8
