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

/// Every command of the main window by the name of its control, and the list that it stands in
/// for the routines below. `tb` stands for a button of the tool bar `tbToolBar`, by its key.
#define QDW8_COMMANDS(C)                                                                           \
    C(cmdPosiFileOpen, LeftOut)                                                                    \
    C(cmdPosiSaveFile, Button)                                                                     \
    C(cmdPosiVerify, Button)                                                                       \
    C(cmdPosiRead, Button)                                                                         \
    C(cmdPosiLoad, Button)                                                                         \
    C(cmdInsertLine, LineButton)                                                                   \
    C(cmdDeleteLine, LineButton)                                                                   \
    C(cmdJogTeach, Button)                                                                         \
    C(cmdOpenIoWin, Button)                                                                        \
    C(cmdOpenMoveWin, Button)                                                                      \
    C(cmdOpenGrpWindow, Button)                                                                    \
    C(cmdSqMcrWinOpen, Button)                                                                     \
    C(cmdParaHyoji, Button)                                                                        \
    C(cmdChangeDev, LeftOut)                                                                       \
    C(cmdReset, Button)                                                                            \
    C(mnuFileNew, LeftOut)                                                                         \
    C(mnuFileOpen, Menu)                                                                           \
    C(mnuFileGetfromCt, Menu)                                                                      \
    C(mnuFileSave, Menu)                                                                           \
    C(mnuFileSaveAs, Menu)                                                                         \
    C(mnuFileLoadtoCt, Menu)                                                                       \
    C(mnuFileShogo, Menu)                                                                          \
    C(mnuFileShogoFile, LeftOut)                                                                   \
    C(mnuFileShogoCt, LeftOut)                                                                     \
    C(mnuFilePageSetup, Menu)                                                                      \
    C(mnuFilePrint, Menu)                                                                          \
    C(mnuFileClose, LeftOut)                                                                       \
    C(mnuFileExit, Always)                                                                         \
    C(mnuEdit, Menu)                                                                               \
    C(mnuEditGyoInsert, LineMenu)                                                                  \
    C(mnuEditGyoDelete, LineMenu)                                                                  \
    C(mnuEditLineCopy, LineCopy)                                                                   \
    C(mnuEditLinePaste, LinePaste)                                                                 \
    C(mnuEditCellCopy, CellCopy)                                                                   \
    C(mnuEditCellPaste, CellPaste)                                                                 \
    C(mnuGridUndo, ByItself)                                                                       \
    C(mnuGridRedo, ByItself)                                                                       \
    C(mnuGridGoTo, Always)                                                                         \
    C(mnuView, Menu)                                                                               \
    C(mnuViewToolBar, LeftOut)                                                                     \
    C(mnuViewStatusBar, LeftOut)                                                                   \
    C(mnuViewInputOutput, LeftOut)                                                                 \
    C(mnuViewMoveTest, LeftOut)                                                                    \
    C(mnuViewGroup, LeftOut)                                                                       \
    C(mnuViewSqMacro, LeftOut)                                                                     \
    C(mnuViewTeaching, LeftOut)                                                                    \
    C(mnuViewOption, LeftOut)                                                                      \
    C(mnuSettings, Menu)                                                                           \
    C(mnuSettingsDeviceOnline, LeftOut)                                                            \
    C(mnuSettingsDeviceOffline, LeftOut)                                                           \
    C(mnuSettingsDetail, LeftOut)                                                                  \
    C(mnuSettingsOffline, LeftOut)                                                                 \
    C(mnuFunctionCt, Menu)                                                                         \
    C(mnuFuncAlmReset, LeftOut)                                                                    \
    C(mnuFuncCtversion, Menu)                                                                      \
    C(mnuFuncGetAxis, LeftOut)                                                                     \
    C(mnuFuncExternal, LeftOut)                                                                    \
    C(mnuHelpContents, LeftOut)                                                                    \
    C(mnuHelpVersion, LeftOut)                                                                     \
    C(tbNew, ToolBar)                                                                              \
    C(tbOpen, ToolBar)                                                                             \
    C(tbSave, ToolBar)                                                                             \
    C(tbPrint, ToolBar)                                                                            \
    C(tbRead, ToolBar)                                                                             \
    C(tbLoad, ToolBar)                                                                             \
    C(tbShogo, ToolBar)                                                                            \
    C(tbLineCopy, LineCopy)                                                                        \
    C(tbLinePaste, LinePaste)                                                                      \
    C(tbCellCopy, CellCopy)                                                                        \
    C(tbCellPaste, CellPaste)                                                                      \
    C(tbInputOutput, ToolBar)                                                                      \
    C(tbMoveTest, ToolBar)                                                                         \
    C(tbGroup, ToolBar)                                                                            \
    C(tbSqMacro, ToolBar)

#define QDW8_COMMAND_NAME(name, list) name,
enum class Command : std::size_t { QDW8_COMMANDS(QDW8_COMMAND_NAME) count };
#undef QDW8_COMMAND_NAME
inline constexpr std::size_t kCommands = static_cast<std::size_t>(Command::count);

/// The control's name.
std::string_view NameOf(Command command);

/// True if the command may be used now: it is built, its own state is on, and, for a command that
/// the routines below leave out, no batch has taken the commands away. The end of the program can
/// always be asked for, as by the title bar. So can a position, or the digits behind the key would
/// go into a cell; and what may be edited can be taken back.
bool IsEnabled(Command command);

/// The command's own state, as the routines below set it.
void SetEnabled(Command command, bool enabled);

/// Tells that a command has a routine behind it. One that was never told stays disabled.
void SetBuilt(Command command);

/// -1 when the clipboard holds rows or cells that can be pasted.
extern Flag& LineCopiedFlag;
extern Flag& CellCopiedFlag;
/// -1 while lines of the grid are selected: the edit commands come back with them at the end of a
/// command.
extern Flag& LineSelectedFlag;

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
/// Number of the run for which they are away, another one each time; 0 while they are there.
int CommandRun();

/// The state at load: every command of the routines above is off until start-up ends.
void ResetCommandStates();

} // namespace qdw8
