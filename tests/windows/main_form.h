#pragma once

#include "window_fixture.h"
#include "windows/main/frmMain.h"

#include <QLineEdit>
#include <memory>
#include <utility>
#include <vector>

namespace qdw8::test {

/// The main window as the program makes it, over the real rules and the system's clipboard, in the
/// hands of a user: what is clicked and typed goes through the screen, and what stands there is
/// read from it. Commands really run; their names are noted.
class MainForm : public WindowTest {
protected:
    MainForm();
    ~MainForm() override;

    /// Fresh rows from position `first` to `last`.
    void show(std::int16_t first, std::int16_t last);
    /// Parameters: of each item and axis another good value, as far as there are some.
    static void loadParameters();

    // The grid, by grid row and column.
    QModelIndex at(int row, int column) const;
    QPoint middleOf(int row, int column) const;
    std::string shown(int row, int column) const;
    /// What stands in a column from a row downwards, joined.
    std::string down(int column, int first, int last) const;
    void click(int row, int column);
    void doubleClick(int row, int column);
    void drag(int row, int column, int toRow, int toColumn);
    void clickNumber(int row);
    /// The edit box is on the screen, and the rules know it.
    bool editing() const;
    /// Keys and characters go to whatever has the focus, as from a keyboard.
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    static void type(const char* text);
    static void copyOutside(const std::string& text);
    static std::string clipboard();

    /// Presses a control of the window by its name: a button, a menu entry, a button of the tool
    /// bar. One that is off does nothing.
    void press(const QString& name);
    bool isOn(const QString& name) const;
    QString text(const char* label) const;

    /// Row, column, and the other end of the selection.
    using Place = std::vector<int>;
    static Place place();

    std::unique_ptr<frmMain> window;
    QTableView* grid = nullptr;
    QLineEdit* editor = nullptr;
    std::vector<std::string> commands;
    bool mayClose = false; ///< the answer to a close
    std::string closed;    ///< what was asked and told of a close
};

} // namespace qdw8::test
