#pragma once

#include <cstdint>

namespace qdw8 {

/// The checks at the head of every command that takes the fields of the parameter window: all are
/// filled, `ParaSet` takes them, all are in range. False after a box, messages 7 and 8 or those of
/// the two ids; the refused fields are marked, and where only the range was refused `ParaSet` holds
/// the values. A field of an axis that came into use since the window looked last is enabled, so
/// that it can be filled. Where other parameters were loaded behind edits the user is asked first;
/// a Cancel gives false, and nothing has changed.
bool TakeParaFields(std::int16_t invalidId, std::int16_t adviceId);

} // namespace qdw8
