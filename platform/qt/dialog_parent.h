#pragma once

class QWidget;

namespace qdw8 {

/// The window that a box or dialog belongs to: the modal dialog on top, else the active window,
/// else (the program is in the background) any window that is on the screen. Null if none is.
QWidget* DialogParent();

} // namespace qdw8
