#pragma once

#include <QPointer>
#include <QWidget>

namespace qdw8 {

/// Locks and unlocks the controls of a window. One that is locked doesn't hand the focus on to the
/// next control, which would get a key that is still coming: the window itself has it until the
/// control is unlocked, and then the control again.
class KeptFocus {
public:
    explicit KeptFocus(QWidget& of) : window(of) {}

    void setOn(QWidget& control, bool on);

private:
    QWidget& window;
    QPointer<QWidget> before; ///< had the focus when it was locked
};

} // namespace qdw8
