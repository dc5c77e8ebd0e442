#include "app/command_states.h"

#include "app/screens.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <initializer_list>

namespace qdw8 {

namespace {

/// Who takes a command away. The lists of lines and cells come back with a selection in the grid.
enum class List : std::uint8_t {
    LeftOut,  ///< nobody; while a batch runs the command does nothing
    Always,   ///< nobody, ever
    ByItself, ///< nobody, ever, but off until its room says that there is something to do
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

/// At load everything is taken away that can be.
std::bitset<kCommands> StatesAtLoad() {
    std::bitset<kCommands> states;
    for (std::size_t index = 0; index < kCommands; ++index) {
        const List list = kEntries[index].list;
        states.set(index, list == List::LeftOut || list == List::Always);
    }
    return states;
}

/// The state of a fresh start.
struct State {
    Flag lineCopied = kClear;
    Flag cellCopied = kClear;
    Flag lineSelected = kClear;
    std::bitset<kCommands> enabled = StatesAtLoad();
    std::bitset<kCommands> built;
    bool batchRuns = true; ///< start-up is one
    int takenAway = 0;     ///< `CommandsAway` objects that live
    int editTakenAway = 0;
    int runs = 0; ///< times that either kind was taken away
};
State state;

/// One command inside another is the same run.
void CountRun() {
    state.runs += CommandsTaken() ? 0 : 1;
}

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
            state.enabled.set(index, enabled);
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

Flag& LineCopiedFlag = state.lineCopied;
Flag& CellCopiedFlag = state.cellCopied;
Flag& LineSelectedFlag = state.lineSelected;

std::string_view NameOf(Command command) {
    std::string_view name = kEntries[IndexOf(command)].name;
    if (IsOnToolBar(IndexOf(command))) {
        name.remove_prefix(kToolBarMark.size());
    }
    return name;
}

bool IsEnabled(Command command) {
    return state.built.test(IndexOf(command)) && state.enabled.test(IndexOf(command)) &&
           !(state.batchRuns && kEntries[IndexOf(command)].list < List::Always);
}

void SetEnabled(Command command, bool enabled) {
    state.enabled.set(IndexOf(command), enabled);
    Tell();
}

void SetBuilt(Command command) {
    state.built.set(IndexOf(command));
}

void CMDBTN_Muko() {
    Put({List::Button, List::LineButton}, false);
    state.batchRuns = true;
    Tell();
}

void CMDBTN_Yuko() {
    Put({List::Button}, true);
    state.batchRuns = false;
    Tell();
}

void ToolBar_Muko() {
    for (std::size_t index = 0; index < kCommands; ++index) {
        if (IsOnToolBar(index)) {
            state.enabled.reset(index);
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
    if (state.batchRuns) {
        return; // a click into the grid doesn't give commands to a running batch
    }
    Put({List::LineButton, List::LineMenu, List::CellCopy, List::LineCopy}, true);
    Put({List::CellPaste}, IsSet(CellCopiedFlag));
    Put({List::LinePaste}, IsSet(LineCopiedFlag));
    Tell();
}

void CellPasteYuko() {
    if (state.batchRuns) {
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
    CountRun();
    ++state.takenAway;
    CMDBTN_Muko();
    ToolBar_Muko();
    Menyu_Muko();
    EditCMD_Muko();
}

CommandsAway::~CommandsAway() {
    if (--state.takenAway > 0) {
        return; // a command that ran inside another one, as a save before the end of the program
    }
    CMDBTN_Yuko();
    ToolBar_Yuko();
    Menyu_Yuko();
    if (IsSet(LineSelectedFlag)) {
        EditCMD_Yuko();
    }
}

EditCommandsAway::EditCommandsAway() : before(state.enabled) {
    CountRun();
    ++state.editTakenAway;
    EditCMD_Muko();
}

EditCommandsAway::~EditCommandsAway() {
    --state.editTakenAway;
    for (std::size_t index = 0; index < kCommands; ++index) {
        if (kEntries[index].list >= List::LineButton) {
            state.enabled.set(index, before.test(index));
        }
    }
    Tell();
}

bool CommandsTaken() {
    return state.takenAway > 0 || state.editTakenAway > 0;
}

int CommandRun() {
    return CommandsTaken() ? state.runs : 0;
}

void ResetCommandStates() {
    state = State{};
    Tell();
}

} // namespace qdw8
