#pragma once

#include <QWidget>

#include <functional>

namespace qdw8 {

/// Serves events until the condition holds. False if it still doesn't after half a minute, which
/// no machine needs.
bool PumpUntil(const std::function<bool()>& condition);

/// Serves events for a while, to show that nothing happens in it.
void PumpFor(int milliseconds);

/// Calls `act` from the event loop as soon as a modal window of this name is on the screen.
void WhenShown(const QString& objectName, const std::function<void(QWidget& window)>& act);

} // namespace qdw8
