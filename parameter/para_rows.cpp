#include "parameter/para_rows.h"

#include "app/number_forms.h"

#include <exception>
#include <utility>

namespace qdw8 {

ParaRows ParaRowTable;

namespace {

void ZeroIfEmpty(ParaCell& cell) {
    if (std::holds_alternative<std::monostate>(cell)) {
        cell = 0.0;
    }
}

} // namespace

ParaCell CellOfField(const std::string& field) {
    const std::string text = Trim(field);
    if (text.empty()) {
        return {};
    }
    if (IsPlainNumber(text)) {
        return NumberFromText(text);
    }
    return field;
}

double CellNumber(const ParaCell& cell) {
    if (const auto* text = std::get_if<std::string>(&cell)) {
        return WholeNumberField(*text);
    }
    const auto* number = std::get_if<double>(&cell);
    return number == nullptr ? 0 : *number;
}

std::string CellText(const ParaCell& cell) {
    if (const auto* text = std::get_if<std::string>(&cell)) {
        return *text;
    }
    const auto* number = std::get_if<double>(&cell);
    return number == nullptr ? std::string() : PlainDecimal(*number);
}

std::int16_t ApplyRowTable(RowSource source) {
    try {
        ParaRows rows = ParaRowTable;
        // Files of older programs end before these two.
        ZeroIfEmpty(rows.at(0, kRowSTOP_PAUSE));
        ZeroIfEmpty(rows.at(0, kRowACC_DCC));

        ParameterSet set;
        for (const ParaItem& item : ParaItems()) {
            const std::size_t columns = item.perAxis() ? kAxes : 1;
            for (std::size_t column = 0; column < columns; ++column) {
                SetParaValue(set, item, column, CellNumber(rows.at(column, item.row)));
            }
        }
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            set.Actuator[axis] = CellText(rows.at(axis, kRowActuator));
            set.parts[axis] = source == RowSource::Controller ? rows.parts[axis]
                                                              : ParseActuator(set.Actuator[axis]);
        }
        ParaRowTable = std::move(rows);
        ParaSet = std::move(set);
        ParaLoadedFlag = kSet;
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

void FillRowTable(const std::string& name) {
    ParaRows rows;
    rows.at(0, kRowFileName) = name;
    for (const ParaItem& item : ParaItems()) {
        for (std::size_t column = 0; column < (item.perAxis() ? kAxes : 1); ++column) {
            rows.at(column, item.row) = ParaValue(ParaSet, item, column);
        }
    }
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        rows.at(axis, kRowActuator) = ParaSet.Actuator[axis];
    }
    rows.parts = ParaSet.parts;
    ParaRowTable = std::move(rows);
}

} // namespace qdw8
