#pragma once

class QPagedPaintDevice;

namespace qdw8 {

struct Manual;

/// Draws the whole manual on paper: a list of its pages with their numbers, then the pages, each on
/// a sheet of its own, black on white. The device's whole sheet is drawn on, from its very corner.
/// False: the device can't be drawn on.
bool PrintManual(const Manual& manual, QPagedPaintDevice& paper);

} // namespace qdw8
