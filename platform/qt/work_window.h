#pragma once

class QWidget;

/// The window that the user works in. A window manager tells late which window is the active one,
/// and tells of none for a moment behind every box: what comes up then must still stand over the
/// window whose command runs, and no other may get the keys.
namespace qdw8 {

/// From now on the window is the one worked in whenever it becomes the active one.
void CountAsWorkWindow(QWidget& window);

/// Brings a window that counts to the front; it is the one worked in at once.
void WorkIn(QWidget& window);

/// Of the windows on the screen the one worked in last. Null: none.
QWidget* WorkWindow();

} // namespace qdw8
