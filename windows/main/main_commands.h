#pragma once

#include "windows/main/command_rows.h"

#include <QMainWindow>
#include <array>
#include <functional>

class QAbstractButton;
class QAction;
class QGridLayout;
class QToolBar;

namespace qdw8 {

/// The controls of the main window that stand for commands. A command has an entry or a button, or
/// a menu of its own.
struct CommandControls {
    std::array<QAction*, kCommands> actions{};
    std::array<QAbstractButton*, kCommands> buttons{};

    /// Shows which commands may be used now.
    void showStates() const;
};

using CommandRoutine = std::function<void(Command)>;

/// Build the menus, `tbToolBar` and the buttons of a frame out of the table, with the numbers of
/// their texts. `routine` gets what the user chooses.
void BuildMenus(QMainWindow& window, CommandControls& controls, const CommandTable& table,
                const CommandRoutine& routine);
QToolBar* BuildToolBar(QMainWindow& window, CommandControls& controls, const CommandTable& table,
                       const CommandRoutine& routine);
void BuildButtons(QWidget& parent, QGridLayout& layout, Frame frame, CommandControls& controls,
                  const CommandTable& table, const CommandRoutine& routine);

} // namespace qdw8
