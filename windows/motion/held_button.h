#pragma once

#include "platform/timer.h"

#include <QObject>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <optional>
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
///
/// A repeat can also come as a release and a press of their own, which have one time. So a hold
/// ends `kUpDelay` behind the release of Space, unless a press of that time comes first; and a
/// press of that time is a repeat, however late it comes.
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

    static constexpr std::int32_t kUpDelay = 10; ///< ms

private:
    enum class By : std::uint8_t { Mouse, Key };

    void begin(int index, By with);
    void believeSpaceUp();
    bool isSameTime(const QEvent& spacePress) const;
    bool isReleased(const QEvent& event) const;
    bool isLost(const QObject* watched, const QEvent& event) const;

    std::vector<QAbstractButton*> buttons;
    QWidget& window;
    Events events;
    QPointer<QAbstractButton> held;
    By by = By::Mouse;
    bool holding = false;
    bool spaceMayRepeat = false; ///< it went down, and wasn't seen to go up
    Timer spaceUp{"HeldButton::spaceUp", kUpDelay, false, [this] { believeSpaceUp(); }};
    std::optional<std::uint64_t> spaceUpAt; ///< when it went up last, in the time of the events
};

} // namespace qdw8
