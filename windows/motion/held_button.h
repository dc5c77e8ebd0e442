#pragma once

#include <QObject>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <vector>

class QAbstractButton;

namespace qdw8 {

/// Buttons that something goes on for as long as one of them is held down: with the left mouse
/// button, or with Space on the one that has the focus. One is held at a time, and each hold ends
/// exactly once, whatever becomes of its release.
///
/// A hold ends with the mouse button or the key, and also when the mouse leaves the button, when
/// the button loses the focus, is switched off or hidden, when the window is no longer the active
/// one, is hidden, minimised, closed or blocked by a box, when the mouse is taken away, when the
/// whole program is no longer in front, as behind a locked screen, and when it ends. A key that
/// repeats itself neither begins nor ends one. A window system that hands the keys back to the
/// window doesn't tell that a key only goes on repeating itself, so behind a hold that was lost
/// Space must have been seen to go up, or another key to go down, before it counts again.
class HeldButton : public QObject {
public:
    struct Events {
        std::function<void(int index)> pressed; ///< of the button, as in the list
        std::function<void()> released;
    };

    /// All buttons stand in one window, whose child the object becomes.
    HeldButton(std::vector<QAbstractButton*> buttons, QWidget& window, Events events);
    ~HeldButton() override;

    /// What is held is let go.
    void release();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class By : std::uint8_t { Mouse, Key };

    void begin(int index, By with);
    bool isReleased(const QEvent& event) const;
    bool isLost(const QObject* watched, const QEvent& event) const;

    std::vector<QAbstractButton*> buttons;
    QWidget& window;
    Events events;
    QPointer<QAbstractButton> held;
    By by = By::Mouse;
    bool holding = false;
    bool spaceMayRepeat = false; ///< it went down, and wasn't seen to go up
};

} // namespace qdw8
