#pragma once

#include "app/Module1.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Inputs and outputs as they travel, six hexadecimal digits each, and as lamps.
///
/// A slot is a bit of those digits: row x 7 + digit, with digit 0 to 5 from the left and row 0 to 3
/// for the values 8, 4, 2, 1.
namespace qdw8 {

inline constexpr std::size_t kIoDigits = 6;
inline constexpr std::size_t kIoRows = 4;
constexpr std::size_t IoSlot(std::size_t row, std::size_t digit) {
    return row * 7 + digit;
}

/// A flag for each slot; those with digit 6 stand for nothing.
using IoSlots = std::array<Flag, kIoRows * 7>;

/// A lamp: the signal's name as it stands on the machine, and its slot.
struct IoLamp {
    const char* name;
    std::size_t slot;
    int white; ///< index of its `imgWhiteIcon`
};

/// In the order of the white icons: 0 to 23 the inputs, 24 to 44 the outputs.
extern const std::array<IoLamp, 24> kInputLamps;
extern const std::array<IoLamp, 21> kOutputLamps;

/// The slots that the six digits of a word set; nothing if one of them is no upper-case hexadecimal
/// digit, or there are not six.
std::optional<IoSlots> SlotsOf(std::string_view digits);

/// The six digits of the slots.
std::string DigitsOf(const IoSlots& slots);

} // namespace qdw8
