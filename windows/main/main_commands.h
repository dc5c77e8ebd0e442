#pragma once

#include "app/command_states.h"

#include <QMainWindow>
#include <array>
#include <functional>

class QAbstractButton;
class QAction;
class QMenu;
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

/// Builds the menus with their numbers as texts, and `tbToolBar`. `routine` gets what the user
/// chooses. Entries that no routine stands behind and none ever will are left out; `mnuFileClose`,
/// for which there is no text, has its shortcut only.
void BuildMenus(QMainWindow& window, CommandControls& controls, const CommandRoutine& routine);
QToolBar* BuildToolBar(QMainWindow& window, CommandControls& controls,
                       const CommandRoutine& routine);

/// A button with the command's name, the number of its caption and that of its tool tip.
QAbstractButton* MakeButton(QWidget& parent, CommandControls& controls, Command command,
                            std::int16_t tag, std::int16_t toolTipText,
                            const CommandRoutine& routine);

} // namespace qdw8
