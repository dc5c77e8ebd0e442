#pragma once

#include <QObject>
#include <cstdint>
#include <functional>

class QGridLayout;
class QSlider;

namespace qdw8 {

class Arrows;
class KeyField;

/// A whole number that is chosen: typed, by a slider or by two arrows, which stand in one row of a
/// layout behind their caption. Up, Down and the page keys work in all three. The number that
/// counts is the one that `showValue` was given last.
class NumberSlider : public QObject {
public:
    struct Names {
        const char* caption; ///< of the caption
        const char* number;
        const char* slider;
        const char* upDown;
        std::int16_t tag; ///< text of the caption
        char mnemonic;
        std::int16_t limits; ///< text that says what may be typed
    };

    /// From 1 to `highest`; `choose` is told what the user chose, and answers with `showValue`.
    NumberSlider(const Names& names, int highest, std::function<void(int)> choose,
                 QGridLayout& layout, int row);
    ~NumberSlider() override;

    void showValue(int number);
    void setEnabled(bool on);
    /// What is half typed is chosen, or dropped with a beep where it is no such number: false.
    bool takeTyped();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void chosen(int number);

    std::function<void(int)> choose;
    KeyField* field;
    QSlider* slider;
    Arrows* arrows;
    int value = 0;
};

} // namespace qdw8
