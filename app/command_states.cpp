#include "app/command_states.h"

#include "app/screens.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <initializer_list>

namespace qdw8 {

Flag LineCopiedFlag = kClear;
Flag CellCopiedFlag = kClear;

namespace {

using enum Command;

constexpr std::array<std::string_view, kCommands> kNames{
    "cmdPosiFileOpen",
    "cmdPosiSaveFile",
    "cmdPosiVerify",
    "cmdPosiRead",
    "cmdPosiLoad",
    "cmdInsertLine",
    "cmdDeleteLine",
    "cmdJogTeach",
    "cmdOpenIoWin",
    "cmdOpenMoveWin",
    "cmdOpenGrpWindow",
    "cmdSqMcrWinOpen",
    "cmdParaHyoji",
    "cmdChangeDev",
    "cmdReset",
    "mnuFileNew",
    "mnuFileOpen",
    "mnuFileGetfromCt",
    "mnuFileSave",
    "mnuFileSaveAs",
    "mnuFileLoadtoCt",
    "mnuFileShogo",
    "mnuFileShogoFile",
    "mnuFileShogoCt",
    "mnuFilePageSetup",
    "mnuFilePrint",
    "mnuFileClose",
    "mnuFileExit",
    "mnuEdit",
    "mnuEditGyoInsert",
    "mnuEditGyoDelete",
    "mnuEditLineCopy",
    "mnuEditLinePaste",
    "mnuEditCellCopy",
    "mnuEditCellPaste",
    "mnuView",
    "mnuViewToolBar",
    "mnuViewStatusBar",
    "mnuViewInputOutput",
    "mnuViewMoveTest",
    "mnuViewGroup",
    "mnuViewSqMacro",
    "mnuViewTeaching",
    "mnuViewOption",
    "mnuSettings",
    "mnuSettingsDeviceOnline",
    "mnuSettingsDeviceOffline",
    "mnuSettingsDetail",
    "mnuSettingsOffline",
    "mnuFunctionCt",
    "mnuFuncAlmReset",
    "mnuFuncCtversion",
    "mnuFuncGetAxis",
    "mnuFuncExternal",
    "mnuHelpContents",
    "mnuHelpVersion",
    "New",
    "Open",
    "Save",
    "Print",
    "Read",
    "Load",
    "Shogo",
    "LineCopy",
    "LinePaste",
    "CellCopy",
    "CellPaste",
    "InputOutput",
    "MoveTest",
    "Group",
    "SqMacro",
};

// What each routine takes away. What it gives back is the list less the commands that depend on
// the grid.
constexpr std::array kButtons{cmdPosiSaveFile, cmdPosiLoad,    cmdPosiRead,      cmdPosiVerify,
                              cmdOpenIoWin,    cmdOpenMoveWin, cmdOpenGrpWindow, cmdSqMcrWinOpen,
                              cmdParaHyoji,    cmdJogTeach,    cmdReset};
constexpr std::array kToolBar{tbNew,   tbOpen,        tbSave,     tbPrint, tbRead,   tbLoad,
                              tbShogo, tbInputOutput, tbMoveTest, tbGroup, tbSqMacro};
constexpr std::array kMenus{mnuFileOpen,  mnuFileGetfromCt, mnuFileSave,      mnuFileSaveAs,
                            mnuFileShogo, mnuFileLoadtoCt,  mnuFilePageSetup, mnuFilePrint,
                            mnuEdit,      mnuFuncCtversion, mnuFunctionCt,    mnuView,
                            mnuSettings};
constexpr std::array kLineButtons{cmdInsertLine, cmdDeleteLine};
constexpr std::array kLineMenus{mnuEditGyoInsert, mnuEditGyoDelete};
constexpr std::array kLineClip{mnuEditLineCopy, mnuEditLinePaste, tbLineCopy, tbLinePaste};
constexpr std::array kCellClip{mnuEditCellCopy, mnuEditCellPaste, tbCellCopy, tbCellPaste};

std::bitset<kCommands> enabledStates;
std::bitset<kCommands> builtCommands;
bool batchRuns = false;
int takenAway = 0; ///< `CommandsAway` objects that live
int editTakenAway = 0;

std::size_t IndexOf(Command command) {
    return static_cast<std::size_t>(command);
}

/// The commands that no routine of this unit takes away. While a batch runs they do nothing.
bool IsLeftOut(Command command) {
    const auto in = [command](const auto& list) {
        return std::find(list.begin(), list.end(), command) != list.end();
    };
    return !(in(kButtons) || in(kToolBar) || in(kMenus) || in(kLineButtons) || in(kLineMenus) ||
             in(kLineClip) || in(kCellClip));
}

void Tell() {
    if (Screens().frmMainCommands) {
        Screens().frmMainCommands();
    }
}

template<typename List> void Put(const List& list, bool enabled) {
    for (const Command command : list) {
        enabledStates.set(IndexOf(command), enabled);
    }
}

} // namespace

std::string_view NameOf(Command command) {
    return kNames[IndexOf(command)];
}

bool IsEnabled(Command command) {
    return builtCommands.test(IndexOf(command)) && enabledStates.test(IndexOf(command)) &&
           !(batchRuns && IsLeftOut(command));
}

void SetEnabled(Command command, bool enabled) {
    enabledStates.set(IndexOf(command), enabled);
    Tell();
}

void SetBuilt(Command command) {
    builtCommands.set(IndexOf(command));
}

void CMDBTN_Muko() {
    Put(kButtons, false);
    Put(kLineButtons, false);
    batchRuns = true;
    Tell();
}

void CMDBTN_Yuko() {
    Put(kButtons, true);
    batchRuns = false;
    Tell();
}

void ToolBar_Muko() {
    Put(kToolBar, false);
    Put(std::array{tbLineCopy, tbLinePaste, tbCellCopy, tbCellPaste}, false);
    Tell();
}

void ToolBar_Yuko() {
    Put(kToolBar, true);
    Tell();
}

void Menyu_Muko() {
    Put(kMenus, false);
    Put(kLineMenus, false);
    Tell();
}

void Menyu_Yuko() {
    Put(kMenus, true);
    Tell();
}

void MenuFunction_Muko() {
    SetEnabled(mnuFunctionCt, false);
}

void MenuFunction_Yuko() {
    SetEnabled(mnuFunctionCt, true);
}

void EditCMD_Muko() {
    Put(kLineButtons, false);
    Put(kLineMenus, false);
    Put(kLineClip, false);
    Put(kCellClip, false);
    Tell();
}

void EditCMD_Yuko() {
    if (batchRuns) {
        return; // a click into the grid doesn't give commands to a running batch
    }
    Put(kLineButtons, true);
    Put(kLineMenus, true);
    Put(std::array{mnuEditCellCopy, tbCellCopy, mnuEditLineCopy, tbLineCopy}, true);
    Put(std::array{mnuEditCellPaste, tbCellPaste}, IsSet(CellCopiedFlag));
    Put(std::array{mnuEditLinePaste, tbLinePaste}, IsSet(LineCopiedFlag));
    Tell();
}

void CellPasteYuko() {
    if (batchRuns) {
        return;
    }
    Put(kLineButtons, true);
    Put(kLineMenus, true);
    Put(kLineClip, true);
    Put(kCellClip, true);
    Tell();
}

void LinePaste_Muko() {
    Put(kLineClip, false);
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
}

EditCommandsAway::EditCommandsAway() : before(enabledStates) {
    ++editTakenAway;
    EditCMD_Muko();
}

EditCommandsAway::~EditCommandsAway() {
    --editTakenAway;
    const auto putBack = [this](const auto& list) {
        for (const Command command : list) {
            enabledStates.set(IndexOf(command), before.test(IndexOf(command)));
        }
    };
    putBack(kLineButtons);
    putBack(kLineMenus);
    putBack(kLineClip);
    putBack(kCellClip);
    Tell();
}

bool CommandsTaken() {
    return takenAway > 0 || editTakenAway > 0;
}

void ResetCommandStates() {
    LineCopiedFlag = kClear;
    CellCopiedFlag = kClear;
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
