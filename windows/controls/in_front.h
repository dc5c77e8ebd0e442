#pragma once

class QDialog;
class QWidget;

namespace qdw8 {

/// What the user works in: the modal window that is up, else the window that the user worked in
/// last, else `home`.
QWidget* WindowOfWork(QWidget* home);

/// Moves a hidden dialog in front of what the user works in. A dialog that is not modal could
/// neither be seen nor used behind a modal window.
void PutInFront(QDialog& dialog, QWidget* home);

/// Hides it and gives it back to `home`, so that it doesn't go with the window that it stood over.
void TakeAway(QDialog& dialog, QWidget* home);

} // namespace qdw8
