#include "simulator/memory.h"

#include <algorithm>
#include <vector>

namespace qdk8 {
namespace {

constexpr int kCommonBlock = 0;
constexpr int kMaskByte = 6;

struct StartAxis {
    int order, offset, type, lead, pulses, stroke, size;
    char letter;
    int strokeMm;
};

/// A J52 is held as 52 and the letter E, whatever its speed.
constexpr std::array<StartAxis, kAxisCountMax> kStartAxes{{
    {1, 400, 1, 8, 400, 15000, 61, 'H', 300},
    {2, 200, 1, 2, 400, 20000, 44, 'L', 100},
    {2, 200, 1, 2, 400, 20000, 52, 'E', 100},
    {3, 192, 1, 8, 192, 4800, 61, 'F', 200},
}};

/// Bytes that no item uses hold something other than 0, so that a writer that loses or moves them
/// shows itself.
void FillReserved(Memory& memory) {
    int cell = 0;
    const auto fill = [&](int block, int first) {
        for (int byte = first; byte < 16; ++byte) {
            SetItem(memory, block, byte, 1, 0x40 + cell++);
        }
    };
    fill(kCommonBlock, 9);
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        fill(AxisBlock(axis), 14);
        fill(DeviceBlock(axis), 12);
    }
}

void FillBlocks(Memory& memory) {
    memory.blocks.fill(std::string(32, '0'));
    FillReserved(memory);
    const std::array<int, 9> common{0, 0, 1, 1, 0, 50, 0x0F, 0, 0};
    for (int byte = 0; byte < 9; ++byte) {
        SetItem(memory, kCommonBlock, byte, 1, common[static_cast<std::size_t>(byte)]);
    }
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        const StartAxis& start = kStartAxes[static_cast<std::size_t>(axis)];
        SetItem(memory, 1 + axis, 0, 1, start.order);
        const int homing = AxisBlock(axis);
        SetItem(memory, homing, 0, 2, start.offset);
        const std::array<int, 5> speeds{80, 10, 5, 3, 15}; // PUSH, VEL, OFSVEL, PUSHVEL, JOGVEL
        for (int i = 0; i < 5; ++i) {
            SetItem(memory, homing, 2 + i, 1, speeds[static_cast<std::size_t>(i)]);
        }
        SetItem(memory, homing, 7, 2, 400); // ALM
        SetItem(memory, homing, 9, 1, 10);  // PG TIMER
        SetItem(memory, homing, 10, 1, 30); // LS timer
        SetItem(memory, homing, 11, 1, 1);  // SOFT LIMIT
        const int device = DeviceBlock(axis);
        SetItem(memory, device, 0, 1, start.type);
        SetItem(memory, device, 1, 1, start.lead);
        SetItem(memory, device, 2, 2, start.pulses);
        SetItem(memory, device, 5, 3, start.stroke);
        SetItem(memory, device, 8, 1, start.size);
        SetItem(memory, device, 9, 1, start.letter);
        SetItem(memory, device, 10, 2, start.strokeMm);
    }
}

std::string StartRow(const Memory& memory, int number) {
    std::string row;
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        const int end = StrokeEnd(memory, axis);
        row += ToHex(1 + (number * 7 + axis * 13) % 60, 2);
        row += ToHex(1 + (number + axis) % (IsSpecialModel(memory, axis) ? 2 : 3), 1);
        row += ToHex((number / 3 + axis) % 4, 1);
        // The last row stands at the stroke end of every axis.
        row += ToHex(number == 999 ? end : (number * 619 + axis * 997) % (end + 1), 5);
    }
    row += ToHex(number % 7 == 0 ? 1 : 0, 1);
    row += ToHex(number % 4, 1);
    row += ToHex(number % 5 == 0 ? number / 5 % 21 : 0, 2);
    return row;
}

std::string BlankRow(const Memory& memory) {
    std::string row;
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        row += std::string("1E") + (IsSpecialModel(memory, axis) ? "2" : "3") + "000000";
    }
    return row + "0000";
}

/// Most macros pulse an output; every fourth looks at an input first, one that rests. The last was
/// never written.
std::string StartMacro(int number) {
    if (number == 20) {
        return std::string(32, 'F');
    }
    const std::string line = ToHex(1 + number % 4, 1);
    std::string steps = number % 4 == 0 ? "2" + line : "";
    steps += "3" + line + "5" + ToHex(1 + number % 9, 1) + "4" + line;
    steps.resize(32, '0');
    return steps;
}

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

int AxisBlock(int axis) {
    return 5 + 2 * axis;
}
int DeviceBlock(int axis) {
    return 6 + 2 * axis;
}

int Item(const Memory& memory, int block, int byte, int width) {
    return DigitsAt(memory.blocks[static_cast<std::size_t>(block)], 2 * byte, 2 * width);
}

void SetItem(Memory& memory, int block, int byte, int width, int value) {
    const auto at = static_cast<std::size_t>(byte);
    const auto bytes = static_cast<std::size_t>(width);
    memory.blocks[static_cast<std::size_t>(block)].replace(2 * at, 2 * bytes,
                                                           ToHex(value, 2 * width));
}

Memory BlankMemory() {
    Memory memory;
    FillBlocks(memory);
    memory.positions.fill(BlankRow(memory));
    memory.groups.fill("001001");
    memory.macros.fill(std::string(32, 'F'));
    return memory;
}

Memory StartMemory() {
    Memory memory = BlankMemory();
    for (int n = 1; n <= 999; ++n) {
        memory.positions[static_cast<std::size_t>(n - 1)] = StartRow(memory, n);
    }
    for (int n = 1; n <= 99; ++n) {
        const int first = (n - 1) * 10 + 1;
        memory.groups[static_cast<std::size_t>(n - 1)] = ToHex(first, 3) + ToHex(first + n % 8, 3);
    }
    for (int n = 1; n <= 20; ++n) {
        memory.macros[static_cast<std::size_t>(n - 1)] = StartMacro(n);
    }
    return memory;
}

unsigned AxisMask(const Memory& memory) {
    return static_cast<unsigned>(Item(memory, kCommonBlock, kMaskByte)) & 0xFU;
}

void SetAxisMask(Memory& memory, unsigned mask) {
    SetItem(memory, kCommonBlock, kMaskByte, 1, static_cast<int>(mask & 0xFU));
}

int StrokeEnd(const Memory& memory, int axis) {
    return Item(memory, DeviceBlock(axis), 5, 3);
}

double PulsesPerMm(const Memory& memory, int axis) {
    const int lead = Item(memory, DeviceBlock(axis), 1);
    const int pulses = Item(memory, DeviceBlock(axis), 2, 2);
    return lead > 0 && pulses > 0 ? static_cast<double>(pulses) / lead : 1.0;
}

bool SoftLimit(const Memory& memory, int axis) {
    return Item(memory, AxisBlock(axis), 11) != 0;
}

bool IsSpecialModel(const Memory& memory, int axis) {
    return Item(memory, DeviceBlock(axis), 8) == 61 && Item(memory, DeviceBlock(axis), 9) == 'F';
}

int HomingOrder(const Memory& memory, int axis) {
    return Item(memory, 1 + axis, 0);
}

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
