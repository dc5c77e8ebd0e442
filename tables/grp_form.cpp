#include "tables/grp_form.h"

namespace qdw8 {
namespace {

struct State {
    std::int16_t page = 0;
};
State state;

void Tell() {
    if (Screens().frmGrp) {
        Screens().frmGrp();
    }
}

} // namespace

std::int16_t& optGrpNo = state.page;

void LoadGrp() {
    GrpTable.fill({1, 1, 0});
    GrpState = TableState{};
    optGrpNo = 0;
    Tell();
}

int GroupOfRow(int row) {
    return optGrpNo * kGrpPageRows + row + 1;
}

void ShowGrpPage(int page) {
    if (page >= 0 && page < kGrpPages) {
        optGrpNo = static_cast<std::int16_t>(page);
        Tell();
    }
}

void EditGrp(int row, GrpField field, const std::string& text) {
    const auto group = static_cast<std::size_t>(GroupOfRow(row));
    std::int16_t& number = field == kGrpStart ? GrpTable[group].start : GrpTable[group].end;
    const std::int16_t typed = NumberOfField(text);
    if (number != typed) {
        number = typed;
        GrpState.unsaved = true;
        if (!GrpState.reasons.empty()) {
            // What was against the row may have been the other field's doing.
            const std::size_t first = (group - 1) * kGrpFields;
            GrpState.reasons[first + kGrpStart] = GrpState.reasons[first + kGrpEnd] = 0;
        }
    }
    Tell();
}

void ResetGrpForm() {
    state = State{};
}

} // namespace qdw8
