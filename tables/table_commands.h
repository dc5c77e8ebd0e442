#pragma once

#include "tables/small_table.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// The eight commands of the window of a small table, and its close. What a command asks and tells,
/// and in which order, is the same for groups and macros; the texts stand in the description.
///
/// A table that the check refuses is never sent, saved, printed or verified, not in part either:
/// the report tells what is wrong. What is shown changes only by a read or an opened file that was
/// good to its end.
namespace qdw8 {

/// What a button of the window stands for.
/// What a command wants besides its table.
enum class Wants : std::uint8_t { Nothing, Line, Printing };
struct TableCommand {
    const char* control;
    std::int16_t captionId;
    void (*routine)(const SmallTable&);
    Wants wants = Wants::Nothing;
};
using TableCommands = std::array<TableCommand, 8>;

/// The command may be used now: no command runs in any window, and what it wants is there.
bool IsEnabled(const SmallTable& table, const TableCommand& command);

/// The click on the button: runs the command as `RunWindowCommand` does. A command that isn't
/// enabled doesn't begin.
void RunTableCommand(const SmallTable& table, const TableCommand& command);

/// Files that were dropped onto the window: as `OpenTable`, with the file for an answer.
void OpenDroppedTable(const SmallTable& table, const std::vector<std::string>& paths);

/// Takes the commands of the window away, or gives them back.
void SetCommandsOff(const SmallTable& table, bool off);

// The routines of the commands.
void ReadTable(const SmallTable& table);
void OpenTable(const SmallTable& table);
void WriteTable(const SmallTable& table);
void SaveTable(const SmallTable& table);
void VerifyWithController(const SmallTable& table);
void VerifyWithFile(const SmallTable& table);
void PrintShown(const SmallTable& table);
void PrintFile(const SmallTable& table);

/// As `SaveTable`; true if that was done.
bool SaveEdits(const SmallTable& table);

/// The window is to close: asks about edits that are neither in a file nor in the controller. True:
/// it may go, and edits that the user gave up count no more. False: the user stays, or wanted to
/// save and nothing was saved.
bool MayClose(const SmallTable& table);

} // namespace qdw8
