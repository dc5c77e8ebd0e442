#pragma once

class QWidget;

namespace qdw8 {

/// From now on the window comes up beside its parent window, to the right, to the left, below or
/// above, where the screen has room for the whole of it. Else it goes into the lower right corner
/// of the screen, where it leaves the most of the other one to be seen. Without a parent window on
/// the screen nothing happens, nor for a window that comes back to its kept place.
void PutBesideParent(QWidget& window);

/// Puts a window that isn't on the screen yet over its parent window, 500 twips (33 pixels) right
/// of and below its corner, and wholly on the screen if it fits there. Without a parent window
/// nothing happens.
void PutOnCorner(QWidget& window);

} // namespace qdw8
