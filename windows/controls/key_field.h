#pragma once

#include <QLineEdit>
#include <QPoint>
#include <functional>

namespace qdw8 {

/// A box into which only some characters can be typed, at most so many, and nothing comes in any
/// other way. A text that the program puts there may be any, and is seen whole.
///
/// Its whole text is selected when the box gets the focus and by Ctrl+A, and what is typed takes
/// the place of a selection. A click that brings the focus selects all even if the mouse moves a
/// little, and so does any click into a box of one character. Keys that are none of its own go on
/// to the window: Up, Down, the page keys and Escape as they are, Enter as `onEnter` or on to the
/// next control.
///
/// A character that it doesn't take, or has no room for, is dropped with a beep, and takes the
/// selection away. What is typed around it is no number that anybody meant, as the 15 of "1.5", and
/// is settled. A box of one character only beeps.
class KeyField : public QLineEdit {
public:
    using Takes = std::function<bool(char)>;

    KeyField(const QString& objectName, int length, Takes takes, QWidget* parent);

    std::function<void()> onEnter;
    /// Instead of emptying the box: puts the text there that counts.
    std::function<void()> onSpoiled;

    /// Empties a text that was typed around a dropped character, with a beep, as an edit of the
    /// user; not one that was emptied or wholly replaced since. True: it did. Happens by itself
    /// when the box is left and before `onEnter`; whoever takes the text earlier asks for it.
    bool settle();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void type(QKeyEvent* event);

    int length;
    bool edited = false; ///< since the box got the focus
    bool spoiled = false;
    bool clickedIn = false;
    bool clickedWhole = false; ///< the button is down, and the press selected all
    bool dragged = false;      ///< the mouse selects something else since
    QPoint clickedAt;
    Takes takes;
};

/// '0' to '9'.
bool IsDigit(char character);

} // namespace qdw8
