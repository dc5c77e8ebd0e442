#include "parameter/para_marks.h"

#include "app/string_table.h"

#include <array>
#include <cstdint>

namespace qdw8 {
namespace {

std::array<std::array<ParaMark, kAxes>, kParaControls> marks{};

ParaMark& MarkAt(ParaControl control, std::size_t axis) {
    return marks.at(static_cast<std::size_t>(control)).at(RowOf(control).perAxis() ? axis : 0);
}

std::string Reason(ParaMark mark) {
    switch (mark) {
    case ParaMark::Empty: return ResText(3055);
    case ParaMark::OutOfRange: return ResText(3056);
    case ParaMark::NoActuator: return ResText(3057);
    default: return {};
    }
}

std::string Limits(ParaControl control) {
    if (!RowOf(control).isText()) {
        return {};
    }
    const ParaItem& item = ItemOfRow(RowOf(control).row);
    return ResText(3053) + std::to_string(item.low) + ResText(3054) + std::to_string(item.high);
}

} // namespace

ParaMark ParaMarkOf(ParaControl control, std::size_t axis) {
    return MarkAt(control, axis);
}

void SetParaMark(ParaControl control, std::size_t axis, ParaMark mark) {
    MarkAt(control, axis) = mark;
}

void ClearParaMarks() {
    marks = {};
}

void ClearParaMarks(std::size_t axis) {
    for (const ParaControlRow& row : ParaControls()) {
        if (row.perAxis()) {
            MarkAt(row.control, axis) = ParaMark::None;
        }
    }
}

std::string ParaFieldTip(ParaControl control, std::size_t axis) {
    const std::string reason = Reason(ParaMarkOf(control, axis));
    const std::string limits = Limits(control);
    return reason + (reason.empty() || limits.empty() ? "" : "\n") + limits;
}

} // namespace qdw8
