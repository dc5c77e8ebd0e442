#pragma once

class QWidget;

namespace qdw8 {

/// The window that a box or dialog belongs to: the modal dialog on top, else the window that is
/// worked in, else any that is on the screen. Null if none is.
QWidget* DialogParent();

/// Behind a box or dialog the window that it belonged to has the keys again; null: none had.
void GiveKeysBack(QWidget* parent);

} // namespace qdw8
