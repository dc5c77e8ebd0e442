#include "app/command_states.h"

#include "app/screens.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <initializer_list>

namespace qdw8 {

Flag LineCopiedFlag = kClear;
Flag CellCopiedFlag = kClear;
Flag LineSelectedFlag = kClear;

namespace {

/// Who takes a command away. The lists of lines and cells come back with a selection in the grid.
enum class List : std::uint8_t {
    LeftOut, ///< nobody; while a batch runs the command does nothing
    Button,
    Menu,
    ToolBar,
    LineButton,
    LineMenu,
    LineCopy,
    LinePaste,
    CellCopy,
    CellPaste
};

struct Entry {
    std::string_view name;
    List list;
};
#define QDW8_COMMAND_ENTRY(name, list) Entry{#name, List::list},
constexpr std::array<Entry, kCommands> kEntries{{QDW8_COMMANDS(QDW8_COMMAND_ENTRY)}};
#undef QDW8_COMMAND_ENTRY

constexpr std::string_view kToolBarMark = "tb";

std::bitset<kCommands> enabledStates;
std::bitset<kCommands> builtCommands;
bool batchRuns = false;
int takenAway = 0; ///< `CommandsAway` objects that live
int editTakenAway = 0;

std::size_t IndexOf(Command command) {
    return static_cast<std::size_t>(command);
}

void Tell() {
    if (Screens().frmMainCommands) {
        Screens().frmMainCommands();
    }
}

void Put(std::initializer_list<List> lists, bool enabled) {
    for (std::size_t index = 0; index < kCommands; ++index) {
        if (std::find(lists.begin(), lists.end(), kEntries[index].list) != lists.end()) {
            enabledStates.set(index, enabled);
        }
    }
}

void PutEditCommands(bool enabled) {
    Put({List::LineButton, List::LineMenu, List::LineCopy, List::LinePaste, List::CellCopy,
         List::CellPaste},
        enabled);
}

bool IsOnToolBar(std::size_t index) {
    return kEntries[index].name.starts_with(kToolBarMark);
}

} // namespace

std::string_view NameOf(Command command) {
    std::string_view name = kEntries[IndexOf(command)].name;
    if (IsOnToolBar(IndexOf(command))) {
        name.remove_prefix(kToolBarMark.size());
    }
    return name;
}

bool IsEnabled(Command command) {
    return builtCommands.test(IndexOf(command)) && enabledStates.test(IndexOf(command)) &&
           !(batchRuns && kEntries[IndexOf(command)].list == List::LeftOut);
}

void SetEnabled(Command command, bool enabled) {
    enabledStates.set(IndexOf(command), enabled);
    Tell();
}

void SetBuilt(Command command) {
    builtCommands.set(IndexOf(command));
}

void CMDBTN_Muko() {
    Put({List::Button, List::LineButton}, false);
    batchRuns = true;
    Tell();
}

void CMDBTN_Yuko() {
    Put({List::Button}, true);
    batchRuns = false;
    Tell();
}

void ToolBar_Muko() {
    for (std::size_t index = 0; index < kCommands; ++index) {
        if (IsOnToolBar(index)) {
            enabledStates.reset(index);
        }
    }
    Tell();
}

void ToolBar_Yuko() {
    Put({List::ToolBar}, true);
    Tell();
}

void Menyu_Muko() {
    Put({List::Menu, List::LineMenu}, false);
    Tell();
}

void Menyu_Yuko() {
    Put({List::Menu}, true);
    Tell();
}

void MenuFunction_Muko() {
    SetEnabled(Command::mnuFunctionCt, false);
}

void MenuFunction_Yuko() {
    SetEnabled(Command::mnuFunctionCt, true);
}

void EditCMD_Muko() {
    PutEditCommands(false);
    Tell();
}

void EditCMD_Yuko() {
    if (batchRuns) {
        return; // a click into the grid doesn't give commands to a running batch
    }
    Put({List::LineButton, List::LineMenu, List::CellCopy, List::LineCopy}, true);
    Put({List::CellPaste}, IsSet(CellCopiedFlag));
    Put({List::LinePaste}, IsSet(LineCopiedFlag));
    Tell();
}

void CellPasteYuko() {
    if (batchRuns) {
        return;
    }
    PutEditCommands(true);
    Tell();
}

void LinePaste_Muko() {
    Put({List::LineCopy, List::LinePaste}, false);
    Tell();
}

CommandsAway::CommandsAway() {
    ++takenAway;
    CMDBTN_Muko();
    ToolBar_Muko();
    Menyu_Muko();
    EditCMD_Muko();
}

CommandsAway::~CommandsAway() {
    if (--takenAway > 0) {
        return; // a command that ran inside another one, as a save before the end of the program
    }
    CMDBTN_Yuko();
    ToolBar_Yuko();
    Menyu_Yuko();
    if (IsSet(LineSelectedFlag)) {
        EditCMD_Yuko();
    }
}

EditCommandsAway::EditCommandsAway() : before(enabledStates) {
    ++editTakenAway;
    EditCMD_Muko();
}

EditCommandsAway::~EditCommandsAway() {
    --editTakenAway;
    for (std::size_t index = 0; index < kCommands; ++index) {
        if (kEntries[index].list >= List::LineButton) {
            enabledStates.set(index, before.test(index));
        }
    }
    Tell();
}

bool CommandsTaken() {
    return takenAway > 0 || editTakenAway > 0;
}

void ResetCommandStates() {
    LineCopiedFlag = kClear;
    CellCopiedFlag = kClear;
    LineSelectedFlag = kClear;
    enabledStates.set();
    builtCommands.reset();
    takenAway = 0;
    editTakenAway = 0;
    CMDBTN_Muko();
    ToolBar_Muko();
    Menyu_Muko();
    EditCMD_Muko();
}

} // namespace qdw8
