#pragma once

#include <QFrame>
#include <functional>

class QLabel;

namespace qdw8 {

class NumberField;

/// The bar below the grid in which the number of a position is typed. It is no window of its own:
/// the digits that follow its key at once would be lost before a window has the keys. Enter goes
/// to the position, or the bar says why it doesn't; Escape and a click elsewhere close it.
class GoToBar : public QFrame {
public:
    /// `done` gives the grid the keys back.
    GoToBar(std::function<void()> done, QWidget* parent);

    /// Comes up, empty and with the keys.
    void open();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void go();
    void say(const QString& words, bool wrong);

    std::function<void()> done;
    NumberField* number;
    QLabel* words;
};

} // namespace qdw8
