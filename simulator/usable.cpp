#include "simulator/usable.h"

#include "simulator/memory.h"

#include <algorithm>
#include <vector>

namespace qdk8 {
namespace {

struct Field {
    int byte, width, low, high;
};

/// Only what a move or a device could not work with at all is refused.
const std::vector<Field>& FieldsOf(int block) {
    static const std::vector<Field> common{{0, 1, 0, 3}, {1, 1, 0, 1},  {2, 1, 0, 1}, {3, 1, 0, 1},
                                           {4, 1, 0, 1}, {6, 1, 0, 15}, {7, 1, 0, 1}};
    static const std::vector<Field> homing{{0, 2, 1, 65535}, {2, 1, 1, 255}, {3, 1, 1, 60},
                                           {4, 1, 1, 60},    {5, 1, 1, 60},  {6, 1, 1, 30}};
    static const std::vector<Field> device{{0, 1, 0, 5},     {1, 1, 1, 255},    {2, 2, 1, 65535},
                                           {4, 1, 0, 2},     {5, 3, 0, 262143}, {8, 1, 0, 99},
                                           {9, 1, 'A', 'Z'}, {10, 2, 0, 500}};
    static const std::vector<Field> none;
    if (block == kCommonBlock) {
        return common;
    }
    if (block < 5) {
        return none;
    }
    return block % 2 == 1 ? homing : device;
}

int DigitsAt(std::string_view text, int from, int width) {
    return FromHex(text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(width)));
}

bool Within(int value, int low, int high) {
    return value >= low && value <= high;
}

} // namespace

bool RowUsable(std::string_view row) {
    if (row.size() != 40 || !IsHex(row)) {
        return false;
    }
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        const int at = 9 * axis;
        if (!Within(DigitsAt(row, at, 2), 1, 60) || !Within(DigitsAt(row, at + 2, 1), 1, 3) ||
            !Within(DigitsAt(row, at + 3, 1), 0, 3) ||
            !Within(DigitsAt(row, at + 4, 5), 0, 262143)) {
            return false;
        }
    }
    return Within(DigitsAt(row, 36, 1), 0, 1) && Within(DigitsAt(row, 37, 1), 0, 3) &&
           Within(DigitsAt(row, 38, 2), 0, 20);
}

bool GroupUsable(std::string_view group) {
    return group.size() == 6 && IsHex(group) && Within(DigitsAt(group, 0, 3), 1, 999) &&
           Within(DigitsAt(group, 3, 3), 1, 999);
}

bool MacroUsable(std::string_view macro) {
    if (macro.size() != 32 || !IsHex(macro)) {
        return false;
    }
    for (int step = 0; step < 16; ++step) {
        const int command = DigitsAt(macro, 2 * step, 1);
        const int data = DigitsAt(macro, 2 * step + 1, 1);
        const bool bare = command == 0 || command == 15;
        const bool line = Within(command, 1, 4) && Within(data, 1, 4);
        const bool timer = Within(command, 5, 6) && Within(data, 1, 9);
        if (!bare && !line && !timer) {
            return false;
        }
    }
    return true;
}

bool BlockUsable(int block, std::string_view digits, int axes) {
    if (digits.size() != 32 || !IsHex(digits)) {
        return false;
    }
    if (block == kCommonBlock && DigitsAt(digits, 2 * kMaskByte, 2) >= 1 << axes) {
        return false;
    }
    const std::vector<Field>& fields = FieldsOf(block);
    return std::all_of(fields.begin(), fields.end(), [&](const Field& field) {
        return Within(DigitsAt(digits, 2 * field.byte, 2 * field.width), field.low, field.high);
    });
}

} // namespace qdk8
