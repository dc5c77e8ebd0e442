#pragma once

#include <QLineEdit>
#include <functional>

namespace qdw8 {

/// The edit box of the grid as a control, `flgdDataEdit`. It stands on the current cell while
/// `flgdData().edit` is open and hands every key to the rules of the grid; what they put into the
/// box it shows.
class CellEditor : public QLineEdit {
public:
    /// What the grid does with the keys that end the edit and are more than that.
    struct Keys {
        std::function<void(QKeyEvent&)> move; ///< the edit is committed; the key moves the cell
        std::function<void()> back;           ///< the same with Shift+Tab
    };

    CellEditor(Keys keys, QWidget* parent);

    /// Takes over length, text, alignment and colour of the edit box that has just been opened.
    void open();
    /// Takes over the text of the edit box if the rules have changed it; all of it is selected
    /// then.
    void refresh();
    /// The edit was begun by typing: the characters take the place of the cell's text.
    void beginWith(const QString& typed);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    /// Characters that may still come in, those in place of the selected ones included.
    int room() const;
    void take();
    void paste();
    /// What is to be typed or pasted at the cursor is taken by the rules.
    bool goesIn(const QString& typed);

    Keys keys;
    std::string taken;    ///< the text of the edit box that the control shows
    bool spoiled = false; ///< it has been since its text was last whole
};

/// The code under which the rules of the grid know a key; others keep their own.
int EditKeyOf(const QKeyEvent& event);
/// The characters of a key that types some; empty for every other key.
QString TypedText(const QKeyEvent& event);

} // namespace qdw8
