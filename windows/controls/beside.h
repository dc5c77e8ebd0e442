#pragma once

class QWidget;

namespace qdw8 {

/// Finds a window that isn't on the screen yet a place beside its parent window, to the right, to
/// the left, below or above, where the screen has room for the whole of it. Else it goes into the
/// lower right corner of the screen, where it leaves the most of the other one to be seen. Without
/// a parent window on the screen nothing happens.
void PutBesideParent(QWidget& window);

} // namespace qdw8
