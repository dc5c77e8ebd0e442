#include "motion/io_lamps.h"

#include "app/number_forms.h"

namespace qdw8 {
namespace {

constexpr std::array<int, kIoRows> kValues{8, 4, 2, 1};
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

} // namespace

const std::array<IoLamp, 24> kInputLamps{{
    {"Stb", 0, 0},      {"Stop", 7, 1},      {"Grp", 14, 2},      {"Res", 21, 3},
    {"Exp4", 1, 4},     {"Exp3", 8, 5},      {"Exp2", 15, 6},     {"Exp1", 22, 7},
    {"P800", 2, 8},     {"P400", 9, 9},      {"P200", 16, 10},    {"P100", 23, 11},
    {"P80", 3, 12},     {"P40", 10, 13},     {"P20", 17, 14},     {"P10", 24, 15},
    {"P8", 4, 16},      {"P4", 11, 17},      {"P2", 18, 18},      {"P1", 25, 19},
    {"HomeLs4", 5, 20}, {"HomeLs3", 12, 21}, {"HomeLs2", 19, 22}, {"HomeLs1", 26, 23},
}};

// Three bits have no lamp: the first of the first digit, the first two of the last one.
const std::array<IoLamp, 21> kOutputLamps{{
    {"Alm", 7, 24},   {"Rdy", 14, 25},  {"Inp", 21, 26},  {"Exp4", 1, 27},  {"Exp3", 8, 28},
    {"Exp2", 15, 29}, {"Exp1", 22, 30}, {"Out2", 19, 31}, {"Out1", 26, 32}, {"P800", 2, 33},
    {"P400", 9, 34},  {"P200", 16, 35}, {"P100", 23, 36}, {"P80", 3, 37},   {"P40", 10, 38},
    {"P20", 17, 39},  {"P10", 24, 40},  {"P8", 4, 41},    {"P4", 11, 42},   {"P2", 18, 43},
    {"P1", 25, 44},
}};

std::optional<IoSlots> SlotsOf(std::string_view digits) {
    if (digits.size() != kIoDigits) {
        return std::nullopt;
    }
    IoSlots slots{};
    for (std::size_t digit = 0; digit < kIoDigits; ++digit) {
        const std::size_t number = kHexDigits.find(digits[digit]);
        if (number == std::string_view::npos) {
            return std::nullopt;
        }
        for (std::size_t row = 0; row < kIoRows; ++row) {
            slots[IoSlot(row, digit)] = FlagOf((static_cast<int>(number) & kValues[row]) != 0);
        }
    }
    return slots;
}

std::string DigitsOf(const IoSlots& slots) {
    std::string digits;
    for (std::size_t digit = 0; digit < kIoDigits; ++digit) {
        int number = 0;
        for (std::size_t row = 0; row < kIoRows; ++row) {
            number += IsSet(slots[IoSlot(row, digit)]) ? kValues[row] : 0;
        }
        digits += HexField(number, 1);
    }
    return digits;
}

} // namespace qdw8
