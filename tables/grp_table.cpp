#include "tables/grp_table.h"

namespace qdw8 {
namespace {

constexpr std::int16_t kOutOfRange = 3151;
constexpr std::int16_t kStartAboveEnd = 3152;

struct State {
    GrpRows table;
    GrpRows compare;
    TableState state;
};
State state;

GrpRows& RowsOf(Held copy) {
    return copy == Held::Shown ? state.table : state.compare;
}

bool InRange(std::int16_t position) {
    return position >= 1 && position <= kLastGroupPosition;
}

} // namespace

GrpRows& GrpTable = state.table;
GrpRows& GrpCompare = state.compare;
TableState& GrpState = state.state;

Numbers TakeGroups(Held copy) {
    Numbers numbers;
    numbers.reserve(std::size_t{kGroups} * kGrpFields);
    const GrpRows& rows = RowsOf(copy);
    for (std::size_t row = 1; row < rows.size(); ++row) {
        numbers.push_back(rows[row].start);
        numbers.push_back(rows[row].end);
    }
    return numbers;
}

void PutGroups(Held copy, const Numbers& numbers) {
    auto number = numbers.begin();
    GrpRows& rows = RowsOf(copy);
    for (std::size_t row = 1; row < rows.size(); ++row) {
        rows[row].start = *number++;
        rows[row].end = *number++;
    }
}

std::int16_t GrpData_Check() {
    Numbers& reasons = GrpState.reasons;
    reasons.assign(std::size_t{kGroups} * kGrpFields, 0);
    auto reason = reasons.begin();
    bool good = true;
    for (std::size_t group = 1; group < GrpTable.size(); ++group, reason += kGrpFields) {
        GrpRow& row = GrpTable[group];
        const bool startGood = InRange(row.start);
        const bool endGood = InRange(row.end);
        row.error = endGood ? 0 : 1;
        if (row.start > row.end) {
            reason[kGrpStart] = reason[kGrpEnd] = kStartAboveEnd;
        }
        if (!startGood) {
            reason[kGrpStart] = kOutOfRange;
        }
        if (!endGood) {
            reason[kGrpEnd] = kOutOfRange;
        }
        good = good && startGood && endGood && row.start <= row.end;
    }
    return good ? 0 : 1;
}

void ResetGroups() {
    state = State{};
}

} // namespace qdw8
