#pragma once

// What the controller remembers: positions, parameter blocks, groups and macros, each kept as the
// very digits that travel on the line, so that a reply can only be what was written.

#include "simulator/wire.h"

#include <array>
#include <string>
#include <string_view>

namespace qdk8 {

constexpr int kPositionCount = 999;
constexpr int kBlockCount = 13;

struct Memory {
    /// 999 rows of 40 digits, index = position number - 1: per axis VEL (2), ACC, WAY, position in
    /// pulses (5); then ITPL, OUT, S/M (2).
    std::array<std::string, kPositionCount> positions;
    /// 13 blocks of 16 bytes in 32 digits; see `item`.
    std::array<std::string, kBlockCount> blocks;
    /// 99 groups of 6 digits, index = group number - 1: start (3), end (3).
    std::array<std::string, 99> groups;
    /// 20 macros of 32 digits, index = macro number - 1: 16 steps of command and data.
    std::array<std::string, 20> macros;

    bool operator==(const Memory&) const = default;
};

constexpr int kCommonBlock = 0; ///< what holds for all axes
constexpr int kMaskByte = 6;    ///< of the common block: axes in use

/// A parameter of `width` bytes, most significant first, at `byte` of `block`.
int Item(const Memory& memory, int block, int byte, int width = 1);
void SetItem(Memory& memory, int block, int byte, int width, int value);

// Parameters that the machine itself goes by. Axes count from 0.
unsigned AxisMask(const Memory& memory); ///< bit 0 AXIS 1 to bit 3 AXIS 4, set: in use
void SetAxisMask(Memory& memory, unsigned mask);
int StrokeEnd(const Memory& memory, int axis);       ///< pulses
double PulsesPerMm(const Memory& memory, int axis);  ///< 1 when the lead stands at 0
bool SoftLimit(const Memory& memory, int axis);      ///< a move past the stroke end is an alarm
bool IsSpecialModel(const Memory& memory, int axis); ///< the 61F
int HomingOrder(const Memory& memory, int axis);     ///< axes of equal order home together
int AxisBlock(int axis);                             ///< the block of the axis' homing items
int DeviceBlock(int axis);                           ///< the block of the axis' device items

} // namespace qdk8
