#pragma once

#include "tables/table_commands.h"

#include <QPointer>
#include <QWidget>
#include <array>
#include <functional>
#include <tuple>

class QBoxLayout;
class QDialog;
class QPushButton;
class QVBoxLayout;

namespace qdw8 {

/// What a window of tables is laid out in.
struct TableFrame {
    QWidget* fields;    ///< everything that is locked while a command runs
    QVBoxLayout* left;  ///< inside `fields`
    QVBoxLayout* right; ///< for the commands
};
/// Names the window, gives it the title with this id and lays it out. It is as large as what stands
/// in it, and counts as a window in which work goes on.
TableFrame LayTableWindow(QDialog& window, const char* name, std::int16_t titleId);

/// The commands of a window of tables, in a column, with Close at its foot. They and the fields are
/// locked while a command runs in any window, and then the user is in the field where he was.
class TableButtons {
public:
    /// `takeTyped` puts what is half typed into the table; that is done before any command.
    /// `fieldAt` is the control of a number whose page is up; the user is led to what a check
    /// refused.
    TableButtons(QWidget& window, QBoxLayout& layout, const SmallTable& table,
                 const TableCommands& commands, const char* closeName,
                 std::function<void()> takeTyped, std::function<QWidget*(TablePlace)> fieldAt);

    /// Looks at what may be used now.
    void showState(QWidget& fields);
    /// Asks first where edits would be lost; `close` takes the window away if it may go.
    void leave(const std::function<void()>& close);

private:
    QPushButton* add(QBoxLayout& layout, const char* name, std::int16_t caption, char letter);

    QWidget& window;
    const SmallTable& table;
    const TableCommands& commands;
    std::function<void()> takeTyped;
    std::function<QWidget*(TablePlace)> fieldAt;
    std::array<QPushButton*, std::tuple_size_v<TableCommands>> buttons{};
    QPushButton* closeButton = nullptr;
    QPointer<QWidget> before; ///< had the focus when the fields were locked
};

} // namespace qdw8
