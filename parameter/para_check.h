#pragma once

#include <cstdint>

/// The range checks of `ParaSet`. Nothing is reported and nothing corrected: the caller decides.
namespace qdw8 {

/// 0 every value is good, 1 any is bad. The items of an axis out of use are not looked at,
/// whatever they hold; the common items always are, the acceleration setting never.
std::int16_t ParametaValueCheck();

/// The same before a device write: only the items that the device decides, of the axes in use.
std::int16_t ParametaValueCheck2();

} // namespace qdw8
