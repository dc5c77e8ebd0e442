#include "windows/motion/held_button.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace qdw8 {
namespace {

bool IsLeftPress(const QEvent& event) {
    return (event.type() == QEvent::MouseButtonPress ||
            event.type() == QEvent::MouseButtonDblClick) &&
           static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
}

bool IsKey(const QEvent& event, QEvent::Type type, bool space) {
    if (event.type() != type) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(event);
    return (key.key() == Qt::Key_Space) == space && !key.isAutoRepeat();
}
bool IsSpacePress(const QEvent& event) {
    return IsKey(event, QEvent::KeyPress, true);
}
bool IsSpaceRelease(const QEvent& event) {
    return IsKey(event, QEvent::KeyRelease, true);
}

std::uint64_t TimeOf(const QEvent& keyEvent) {
    return static_cast<const QKeyEvent&>(keyEvent).timestamp();
}

} // namespace

HeldButton::HeldButton(std::vector<QAbstractButton*> all, QWidget& of, Events what)
    : QObject(&of), buttons(std::move(all)), window(of), events(std::move(what)) {
    // In front of every receiver: no control's own handling can keep a release back.
    QCoreApplication::instance()->installEventFilter(this);
}

HeldButton::~HeldButton() {
    DisableTimer(spaceUp);
    release();
}

void HeldButton::begin(int index, By with) {
    held = buttons[static_cast<std::size_t>(index)];
    by = with;
    holding = true;
    events.pressed(index);
}

void HeldButton::release() {
    if (!std::exchange(holding, false)) {
        return;
    }
    events.released();
    if (held) {
        held->setDown(false); // it looks like what goes on
    }
}

void HeldButton::believeSpaceUp() {
    DisableTimer(spaceUp);
    spaceMayRepeat = false;
    if (by == By::Key) {
        release();
    }
}

/// As a release; nobody lifts a key and presses it again so soon. A tool that types may give no
/// times; it tells no repeats either.
bool HeldButton::isSameTime(const QEvent& spacePress) const {
    constexpr std::uint64_t kSoon = 2; // ms
    const std::uint64_t pressed = TimeOf(spacePress);
    return pressed != 0 && spaceUpAt && pressed - *spaceUpAt <= kSoon;
}

bool HeldButton::isReleased(const QEvent& event) const {
    if (by == By::Key) {
        return false; // it is to be believed first
    }
    switch (event.type()) {
    case QEvent::MouseButtonRelease:
        return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
    case QEvent::MouseMove: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        const QWidget* const button = held;
        return !mouse.buttons().testFlag(Qt::LeftButton) || button == nullptr ||
               !button->rect().contains(button->mapFromGlobal(mouse.globalPosition().toPoint()));
    }
    default: return false;
    }
}

bool HeldButton::isLost(const QObject* watched, const QEvent& event) const {
    const QWidget* const button = held;
    const bool ofButton = button != nullptr && watched == button;
    const bool ofWindow = watched == &window || watched == window.windowHandle();
    switch (event.type()) {
    case QEvent::FocusOut: // also of a window that is no longer the active one, or minimised
    case QEvent::UngrabMouse: return ofButton;
    case QEvent::EnabledChange: return ofButton && !button->isEnabled();
    case QEvent::Hide: return ofButton || ofWindow;
    case QEvent::WindowBlocked: return ofWindow;
    case QEvent::ApplicationStateChange:
        return static_cast<const QApplicationStateChangeEvent&>(event).applicationState() !=
               Qt::ApplicationActive;
    default: return false;
    }
}

bool HeldButton::eventFilter(QObject* watched, QEvent* event) {
    if (holding && (!held || isReleased(*event) || isLost(watched, *event))) {
        release();
    }
    const bool spacePress = IsSpacePress(*event);
    const bool spaceRelease = IsSpaceRelease(*event);
    if (spaceRelease) {
        spaceUpAt = TimeOf(*event);
        EnableTimer(spaceUp);
    } else if (spacePress && spaceUp.enabled) {
        isSameTime(*event) ? DisableTimer(spaceUp) : believeSpaceUp();
    } else if (IsKey(*event, QEvent::KeyPress, false)) {
        spaceMayRepeat = false; // the last key that went down is the one that repeats itself
    }
    const auto found = std::find(buttons.begin(), buttons.end(), watched);
    if (found == buttons.end()) {
        return false;
    }
    const bool repeats = spacePress && (spaceMayRepeat || isSameTime(*event));
    spaceMayRepeat = spaceMayRepeat || spacePress;
    if (!holding && !repeats && (*found)->isEnabled() && (spacePress || IsLeftPress(*event))) {
        begin(static_cast<int>(found - buttons.begin()), spacePress ? By::Key : By::Mouse);
    }
    // A button looks held for as long as it is: also when a release isn't believed yet, and when
    // the mouse comes back to it or a key repeats itself.
    return holding ? by == By::Key && spaceRelease : repeats || event->type() == QEvent::MouseMove;
}

} // namespace qdw8
