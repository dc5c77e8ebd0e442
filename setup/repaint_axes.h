#pragma once

namespace qdw8 {

/// Repaints what follows from the axes in use and their devices: names, heads and colours, scale.
void RepaintAxes();

} // namespace qdw8
