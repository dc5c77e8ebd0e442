#include "simulator/start_memory.h"

namespace qdk8 {
namespace {

struct StartAxis {
    int order, offset, type, lead, pulses, function, stroke, size;
    char letter;
    int strokeMm;
};

/// A J52 is held as 52 and the letter E, whatever its speed. A QD-61F always has its pulse
/// generator, which is told by its function.
constexpr std::array<StartAxis, kAxisCountMax> kStartAxes{{
    {1, 400, 1, 8, 400, 0, 15000, 61, 'H', 300},
    {2, 200, 1, 2, 400, 0, 20000, 44, 'L', 100},
    {2, 200, 1, 2, 400, 0, 20000, 52, 'E', 100},
    {3, 192, 1, 8, 192, 2, 4800, 61, 'F', 200},
}};

/// Bytes that no item uses hold something else than 0: a writer that loses or moves them shows.
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
        SetItem(memory, device, 4, 1, start.function);
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

/// Most macros pulse an output; every fourth looks first at an input, which rests. The last macro
/// was never written.
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
} // namespace

Memory BlankMemory() {
    Memory memory;
    FillBlocks(memory);
    memory.positions.fill(BlankRow(memory));
    memory.groups.fill("001001");
    memory.macros.fill(std::string(32, 'F'));
    return memory;
}

namespace {
Memory MakeStartMemory() {
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
} // namespace

const Memory& StartMemory() {
    static const Memory memory = MakeStartMemory();
    return memory;
}
} // namespace qdk8
