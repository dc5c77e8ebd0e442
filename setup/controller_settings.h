#pragma once

#include <cstdint>

/// The axes and actuators that the program believes in, against those of the controller.
namespace qdw8 {

/// Compares both before data are read from the controller; a difference is put to the user, who
/// can take the controller's setting over or disregard it. 0 go on; 1 the user refused; -1 the
/// controller couldn't be asked or its setting couldn't be taken over.
std::int16_t MatchControllerSettings();

} // namespace qdw8
