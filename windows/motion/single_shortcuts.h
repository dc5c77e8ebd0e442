#pragma once

#include <QObject>

class QWidget;

namespace qdw8 {

/// In a window whose buttons move or switch: a letter with Alt that is held down clicks once. The
/// key's own repetition would begin one run behind the other, for as long as it is held. Space
/// clicks where it goes up, so that it needs no such thing.
class SingleShortcuts : public QObject {
public:
    /// Goes with the window.
    explicit SingleShortcuts(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window;
};

} // namespace qdw8
