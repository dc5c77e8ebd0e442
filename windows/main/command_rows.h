#pragma once

#include "app/command_states.h"
#include "windows/controls/drawings.h"

#include <cstdint>
#include <optional>
#include <span>

/// What the main window is told of its commands: one row for each thing that a user can have done,
/// wherever the window has it. The window builds its menus, its tool bar and its buttons from the
/// rows.
namespace qdw8 {

/// The menus, in the order of their bar.
enum class Menu : std::uint8_t { File, FileShogo, Edit, View, Settings, FunctionCt, Help, Grid };

struct MenuRow {
    Menu menu;
    const char* name;
    std::int16_t caption;                ///< id of the text; 0: stands in no bar
    std::optional<Command> command = {}; ///< a menu with a state of its own: it is off as a whole
    std::optional<Menu> inside = {};     ///< stands in that menu, in front of its next entry
    bool line = false;                   ///< a separator above
};

/// The frames of the main window that hold buttons.
enum class Frame : std::uint8_t { Position, Controller, OnLine };

struct ButtonPlace {
    Command name;
    std::int16_t caption;
    std::int16_t toolTip; ///< 0 for none
    Frame frame;
    int row = 0;
    int column = 0;
};

struct MenuPlace {
    Command name;
    Menu menu;
    std::int16_t caption;    ///< 0: no entry, only the key
    const char* key = "";    ///< several stand between "; "
    bool line = false;       ///< a separator above
    bool ticked = false;     ///< can be ticked, and is at first
    bool everywhere = false; ///< its key counts in every window that no modal one blocks
};

struct ToolBarPlace {
    Command name;
    int index; ///< from 1; the numbers between the buttons are separators
    std::int16_t toolTip;
    Drawing drawing;
};

/// What becomes of a cell that is being edited when a command starts.
enum class EditedCell : std::uint8_t {
    Committed, ///< the command works on the grid's data: a text that is rejected keeps it from
               ///< starting
    LeftAlone, ///< the command runs beside the edit
    GivenUp    ///< committed, but a text that is rejected stops nothing: the cell keeps its old one
};

/// When and where a command runs.
enum class Runs : std::uint8_t {
    OnFreeLine, ///< at once, or as soon as an exchange in the background has ended
    Here,       ///< at once: it changes cells, and the keys that follow are meant for them, or
                ///< ends the program, which waits for no line
    InWindow    ///< in the main window itself, which shows and hides its bars
};

struct CommandRow {
    void (*routine)() =
        nullptr; ///< null for a command that isn't built, and for one that runs in the window
    Runs runs = Runs::OnFreeLine;
    EditedCell editedCell = EditedCell::Committed;
    std::optional<ButtonPlace> button = {};
    std::optional<MenuPlace> entry = {};
    std::optional<ToolBarPlace> tool = {};

    bool built() const { return routine != nullptr || runs == Runs::InWindow; }
    bool has(Command command) const {
        return (button && button->name == command) || (entry && entry->name == command) ||
               (tool && tool->name == command);
    }
};

/// The rows in the order of the menu entries.
struct CommandTable {
    std::span<const MenuRow> menus;
    std::span<const CommandRow> rows;

    /// The row of a control; null for a menu.
    const CommandRow* find(Command command) const {
        for (const CommandRow& row : rows) {
            if (row.has(command)) {
                return &row;
            }
        }
        return nullptr;
    }
};

} // namespace qdw8
