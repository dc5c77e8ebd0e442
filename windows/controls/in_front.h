#pragma once

#include <QPointer>
#include <QWidget>

class QDialog;

namespace qdw8 {

/// For its life the window is the one whose command runs; the windows that come up for it stand
/// over this one. They nest.
class StartedFrom {
public:
    explicit StartedFrom(QWidget& window);
    ~StartedFrom();
    StartedFrom(const StartedFrom&) = delete;
    StartedFrom& operator=(const StartedFrom&) = delete;

private:
    QPointer<QWidget> before;
};

/// Moves a hidden dialog in front of what the user works in: the modal window that is up, else the
/// window whose command runs, else `home`. A dialog that is not modal could neither be seen nor
/// used behind a modal window.
void PutInFront(QDialog& dialog, QWidget* home);

/// Hides it and gives it back to `home`, so that it doesn't go with the window that it stood over.
void TakeAway(QDialog& dialog, QWidget* home);

} // namespace qdw8
