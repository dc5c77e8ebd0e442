#pragma once

#include "app/command_states.h"
#include "windows/main/grid_columns.h"

#include <QTableView>
#include <QTimer>
#include <functional>
#include <utility>

class QLabel;

namespace qdw8 {

class CellEditor;
class GridModel;

/// The four numbers that tell a selection: the current cell and the other end.
struct GridSelection {
    int row = 0;
    int col = 0;
    int rowSel = 0;
    int colSel = 0;
    bool operator==(const GridSelection&) const = default;
};

/// The grid on the screen, `flgdData`: shows what the unit holds, hands the selection back, and
/// hands keys and double clicks to the rules of editing. A cell is edited in the control
/// `flgdDataEdit`, which stands on it while the unit's edit box is open.
///
/// Typing, F2, Enter and a double click begin an edit. Enter, Tab, the keys up, down, page up and
/// page down and a click elsewhere in the grid end it, Esc puts the cell back.
class GridView : public QTableView {
public:
    struct Events {
        /// The user has moved the current cell or the selection: grid row and column of the
        /// current cell, then those of the selection's other end.
        std::function<void(int, int, int, int)> rowColChange;
        /// The keys for copy and paste stand for the command that fits the selection.
        std::function<void(Command)> command;
        /// The menu of the cells is asked for, at a place of the screen.
        std::function<void(QPoint)> menu;
    };

    explicit GridView(Events events, QWidget* parent = nullptr);

    /// Shows what the grid holds now, unless it is frozen. Cheap when nothing has changed.
    void refresh();
    /// Shows the heads alone.
    void refreshHeads();
    /// The texts that don't change during a run.
    void loadResources();
    /// Brings the unit up to date before something else happens: the selection is handed back, a
    /// cell being edited is committed. False: it was rejected, the edit stays open and has the
    /// focus.
    bool finishInput();

    void keyboardSearch(const QString& search) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    /// Tab and Shift+Tab go along the row, and out of the grid at its ends.
    bool focusNextPrevChild(bool next) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void focusChanged();
    void showLock();
    void showSelection();
    void showEditor();
    void placeEditor();
    void focusMoved(QWidget* now);
    void followInputMethod();
    void selectionMoved();
    void handBack();
    void handBackNow();
    void openMenu(QPoint at);
    void openMenuOnCell();
    void takeLineForMenu(const QMouseEvent& press, const QObject* head);
    bool moveInRow(int columns);
    std::pair<int, int> rowsOnScreen() const;

    GridModel* cells;
    GridColumns widths;
    QLabel* corner;
    CellEditor* editor = nullptr;
    Events events;
    GridSelection known; ///< the unit's selection when it was last shown or handed back
    int knownHomes = 0;
    int knownShown = 0;
    bool showing = false;   ///< the selection comes from the unit, not from the user
    bool composing = false; ///< an edit was begun by an input method that isn't through yet
    QTimer moveSoon;
    QObject alive; ///< ends the watch on the focus before the view is half gone
};

} // namespace qdw8
