#pragma once

#include <QTableWidget>

namespace qdw8 {

class KeyField;
struct ListEdit;
struct MoveFormData;

/// The list of the move test on the screen, `flgdProgram`: one row of cells, of which one is always
/// the current one. A digit, Enter, F2, the space bar and a double click open the editor `txtEdit2`
/// over it; what becomes of the keys in there is for the rules of the list.
class MoveList : public QTableWidget {
public:
    explicit MoveList(QWidget* parent);
    ~MoveList() override;

    /// Shows cells, current cell and editor. The entry with which the next click begins has its
    /// head in bold.
    void showState(const MoveFormData& form);
    /// Ends the entry in the editor. False: it is none, and the cell stayed as it was.
    bool takeTyped();
    /// Opens the editor again behind one that was none, with a beep.
    void typeAgain();

    bool eventFilter(QObject* watched, QEvent* event) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void colour();
    void showEditor(const ListEdit& edit);

    KeyField* editor;
};

} // namespace qdw8
