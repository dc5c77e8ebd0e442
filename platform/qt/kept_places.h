#pragma once

#include <QSize>

class QWidget;

/// Windows come back as the user left them. Nothing of it outlives the run. Windows of one object
/// name are one window.
namespace qdw8 {

/// From now on the window comes up where it stood when it went last, and as large, but wholly on a
/// screen that is there now. For the first time it comes up where it is put, shifted so far that
/// the upper left corner of every other window can be seen, if the screen has room for that.
void KeepPlace(QWidget& window);

/// It comes back to a place of its own: nothing else is to put it anywhere.
bool HasKeptPlace(const QWidget& window);

/// For a dialog that stands over whatever asks: keeps its size alone, and whether it was maximised.
/// Returns the size that it had when it went last, or else `fresh`.
QSize KeepSize(QWidget& window, QSize fresh);

/// As at the start of the run.
void ForgetPlaces();

} // namespace qdw8
