#include "simulator/memory.h"

namespace qdk8 {

int AxisBlock(int axis) {
    return 5 + 2 * axis;
}

int DeviceBlock(int axis) {
    return 6 + 2 * axis;
}

int Item(const Memory& memory, int block, int byte, int width) {
    const std::string_view digits = memory.blocks[static_cast<std::size_t>(block)];
    return FromHex(
        digits.substr(2 * static_cast<std::size_t>(byte), 2 * static_cast<std::size_t>(width)));
}

void SetItem(Memory& memory, int block, int byte, int width, int value) {
    const auto at = static_cast<std::size_t>(byte);
    const auto bytes = static_cast<std::size_t>(width);
    memory.blocks[static_cast<std::size_t>(block)].replace(2 * at, 2 * bytes,
                                                           ToHex(value, 2 * width));
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

} // namespace qdk8
