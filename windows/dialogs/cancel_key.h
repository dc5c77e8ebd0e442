#pragma once

#include <QObject>
#include <functional>

class QBoxLayout;
class QDialog;
class QPushButton;

namespace qdw8 {

/// Escape of a dialog that stands on the screen without blocking. While it is shown and `offered`
/// says that there is something to cancel, the key is its `reject`, whichever window of the program
/// is active; a menu or a modal window in front keeps its own Escape. When such a window has gone,
/// the dialog becomes the active one again. Goes with the dialog.
class CancelKey : public QObject {
public:
    CancelKey(QDialog& shown, std::function<bool()> isOffered);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takesKeys() const;

    QDialog& dialog;
    std::function<bool()> offered;
};

/// The button of such a dialog, in a row at the end of its layout. The dialog itself has the focus:
/// a blank or an Enter that was meant for something else cancels nothing. Who wants the button by
/// the keyboard goes to it with Tab.
QPushButton* AddCancelButton(QDialog& dialog, QBoxLayout& layout, const char* name,
                             std::function<void()> click);

} // namespace qdw8
