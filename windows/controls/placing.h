#pragma once

class QDialog;
class QWidget;

namespace qdw8 {

/// From now on the dialog opens over the middle of its parent window, frames counted, and inside
/// the screen. A window manager may move a window after it was shown: until the user touches the
/// dialog, it goes along.
void KeepCentred(QDialog& dialog);

/// Moves a hidden dialog in front of what the user works in: the modal window that is up, else
/// `home`. A dialog that is not modal could neither be seen nor used behind a modal window.
void PutInFront(QDialog& dialog, QWidget* home);

} // namespace qdw8
