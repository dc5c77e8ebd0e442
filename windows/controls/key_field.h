#pragma once

#include <QLineEdit>
#include <functional>

namespace qdw8 {

/// A box into which only some characters can be typed, at most so many, and nothing comes in any
/// other way. A text that the program puts there may be any, and is seen whole.
///
/// Its whole text is selected when the box gets the focus and by Ctrl+A, and what is typed takes
/// the place of a selection. Keys that are none of its own go on to the window: Up, Down, the page
/// keys and Escape as they are, Enter as `onEnter` or on to the next control.
class KeyField : public QLineEdit {
public:
    using Takes = std::function<bool(char)>;

    KeyField(const QString& objectName, int length, Takes takes, QWidget* parent);

    std::function<void()> onEnter;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    int length;
    bool clickedIn = false;
    Takes takes;
};

/// '0' to '9'.
bool IsDigit(char character);

} // namespace qdw8
