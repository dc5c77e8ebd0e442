#pragma once

#include <cstdint>

/// The rows of the position table, from the controller.
namespace qdw8 {

/// Reads the rows of the working range into `PosiStage`, with the transfer dialog. 0 done; 1 an
/// exchange failed; 2 cancelled by the user. After 1 and 2 `PosiStage` is as it was.
std::int16_t ReadPosidataFromCt();

} // namespace qdw8
