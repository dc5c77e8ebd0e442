#pragma once

#include "app/Module1.h"

#include <bitset>
#include <cstddef>
#include <string_view>

/// Which commands of the main window may be used. The window shows these states; it holds none.
///
/// `Muko` takes commands away, `Yuko` gives them back. The pairs are deliberately not symmetrical:
/// the `Yuko` routines give back only what doesn't depend on the grid, and the edit commands
/// return when the grid next gets a selection.
namespace qdw8 {

/// Every command of the main window. The names are those of the controls; `tb` stands for a button
/// of the tool bar `tbToolBar`, by its key.
enum class Command : std::size_t {
    // buttons
    cmdPosiFileOpen,
    cmdPosiSaveFile,
    cmdPosiVerify,
    cmdPosiRead,
    cmdPosiLoad,
    cmdInsertLine,
    cmdDeleteLine,
    cmdJogTeach,
    cmdOpenIoWin,
    cmdOpenMoveWin,
    cmdOpenGrpWindow,
    cmdSqMcrWinOpen,
    cmdParaHyoji,
    cmdChangeDev,
    cmdReset,
    // menus
    mnuFileNew,
    mnuFileOpen,
    mnuFileGetfromCt,
    mnuFileSave,
    mnuFileSaveAs,
    mnuFileLoadtoCt,
    mnuFileShogo,
    mnuFileShogoFile,
    mnuFileShogoCt,
    mnuFilePageSetup,
    mnuFilePrint,
    mnuFileClose,
    mnuFileExit,
    mnuEdit,
    mnuEditGyoInsert,
    mnuEditGyoDelete,
    mnuEditLineCopy,
    mnuEditLinePaste,
    mnuEditCellCopy,
    mnuEditCellPaste,
    mnuView,
    mnuViewToolBar,
    mnuViewStatusBar,
    mnuViewInputOutput,
    mnuViewMoveTest,
    mnuViewGroup,
    mnuViewSqMacro,
    mnuViewTeaching,
    mnuViewOption,
    mnuSettings,
    mnuSettingsDeviceOnline,
    mnuSettingsDeviceOffline,
    mnuSettingsDetail,
    mnuSettingsOffline,
    mnuFunctionCt,
    mnuFuncAlmReset,
    mnuFuncCtversion,
    mnuFuncGetAxis,
    mnuFuncExternal,
    mnuHelpContents,
    mnuHelpVersion,
    // tool bar
    tbNew,
    tbOpen,
    tbSave,
    tbPrint,
    tbRead,
    tbLoad,
    tbShogo,
    tbLineCopy,
    tbLinePaste,
    tbCellCopy,
    tbCellPaste,
    tbInputOutput,
    tbMoveTest,
    tbGroup,
    tbSqMacro,
    count
};
inline constexpr std::size_t kCommands = static_cast<std::size_t>(Command::count);

/// The control's name.
std::string_view NameOf(Command command);

/// True if the command may be used now: it is built, its own state is on, and, for a command that
/// the routines below leave out, no batch has taken the commands away.
bool IsEnabled(Command command);

/// The command's own state, as the routines below set it.
void SetEnabled(Command command, bool enabled);

/// Tells that a command has a routine behind it. One that was never told stays disabled.
void SetBuilt(Command command);

/// -1 when the clipboard holds rows or cells that can be pasted.
extern Flag LineCopiedFlag;
extern Flag CellCopiedFlag;

void CMDBTN_Muko();
void CMDBTN_Yuko();
void ToolBar_Muko();
void ToolBar_Yuko();
void Menyu_Muko();
void Menyu_Yuko();
void MenuFunction_Muko();
void MenuFunction_Yuko();
void EditCMD_Muko();
/// With a row selection in the grid. Nothing happens while a batch runs.
void EditCMD_Yuko();
/// With a cell selection in the grid. Nothing happens while a batch runs.
void CellPasteYuko();
void LinePaste_Muko();

/// Takes all commands away for the life of the object and gives back what doesn't depend on the
/// grid: what every command does that talks to the controller or changes the table. They nest; the
/// outermost one gives the commands back.
class CommandsAway {
public:
    CommandsAway();
    ~CommandsAway();
    CommandsAway(const CommandsAway&) = delete;
    CommandsAway& operator=(const CommandsAway&) = delete;
};

/// Takes the edit commands away for the life of the object and puts them back as they were.
class EditCommandsAway {
public:
    EditCommandsAway();
    ~EditCommandsAway();
    EditCommandsAway(const EditCommandsAway&) = delete;
    EditCommandsAway& operator=(const EditCommandsAway&) = delete;

private:
    std::bitset<kCommands> before;
};

/// True while an object of either kind lives.
bool CommandsTaken();

/// The state at load: every command of the routines above is off until start-up ends.
void ResetCommandStates();

} // namespace qdw8
