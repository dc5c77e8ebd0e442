#pragma once

#include "link/batch.h"

/// The way of the position table from the controller.
namespace qdw8 {

/// Reads the rows of the working range into `PosiStage`, with the transfer dialog and its cancel
/// button. Unless it is done `PosiStage` is as it was; the end of the program counts as a
/// cancellation. The port is closed then unless it is kept.
LineResult ReadPosidataFromCt();

} // namespace qdw8
