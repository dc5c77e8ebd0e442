#include "program/commands.h"

#include "app/boxes.h"
#include "app/file_questions.h"
#include "app/screens.h"
#include "link/background.h"
#include "link/window_command.h"
#include "motion/motion_window.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_clipboard.h"
#include "position/grid_editor.h"
#include "position/grid_lines.h"
#include "position/grid_undo.h"
#include "position/posi_file.h"
#include "position/posi_new.h"
#include "position/posi_table.h"
#include "position/posi_verify.h"
#include "print/print_command.h"
#include "setup/change_device.h"
#include "setup/line_commands.h"
#include "setup/posi_open.h"
#include "setup/posi_read.h"
#include "setup/posi_write.h"

#include <array>
#include <functional>
#include <memory>

namespace qdw8 {
namespace {

using enum Command;
using enum EditedCell;
using enum Runs;

void CloseMainWindow() {
    Screens().frmMainClose();
}

void OpenParameters() {
    Screens().frmParameta2Show(false);
}

void OpenGroups() {
    Screens().frmGrpShow();
}

void OpenMacros() {
    Screens().frmSqMcrShow();
}

void OpenIoMonitor() {
    OpenMotionWindow(&ScreenFunctions::frmIOCheckShow);
}

void OpenTeaching() {
    OpenMotionWindow(&ScreenFunctions::frmJOGShow);
}

void OpenMoveTest() {
    OpenMotionWindow(&ScreenFunctions::frmMoveShow);
}

void OpenHelp() {
    Screens().frmHelpShow();
}

void OpenOptions() {
    const PollHeld held; // another port is closed with nothing going on in it
    ShowModal(Screens().frmOptions2Show);
}

void OpenAbout() {
    ShowModal(Screens().frmAboutShow);
}

/// The printer dialog for the page set-up; what was chosen stands when something is printed.
void PageSetup() {
    const PollHeld held; // nothing begins on the line under the dialog
    ThePlatform().CommonDialog1.ShowPrinter({kPageSetup, false});
}

constexpr std::array kMenus{
    MenuRow{Menu::File, "mnuFile", 250, {}, {}},
    MenuRow{Menu::FileShogo, "mnuFileShogo", 257, mnuFileShogo, Menu::File, true},
    MenuRow{Menu::Edit, "mnuEdit", 265, mnuEdit, {}},
    MenuRow{Menu::View, "mnuView", 270, mnuView, {}},
    MenuRow{Menu::Settings, "mnuSettings", 280, mnuSettings, {}},
    MenuRow{Menu::FunctionCt, "mnuFunctionCt", 285, mnuFunctionCt, {}},
    MenuRow{Menu::Help, "mnuHelp", 290, {}, {}},
    MenuRow{Menu::Grid, "mnuGrid", 0, {}, {}},
};

constexpr std::array kRows{
    CommandRow{.routine = mnuFileNew_Click,
               .entry = {{mnuFileNew, Menu::File, 251, "Ctrl+N"}},
               .tool = {{tbNew, 1, 300, Drawing::New}}},
    CommandRow{.routine = OpenPosiFile,
               .button = {{cmdPosiFileOpen, 203, 313, Frame::Position, 0, 0}},
               .entry = {{mnuFileOpen, Menu::File, 252, "Ctrl+O"}},
               .tool = {{tbOpen, 2, 301, Drawing::Open}}},
    CommandRow{.routine = ReadFromCt,
               .button = {{cmdPosiRead, 206, 316, Frame::Position, 0, 1}},
               .entry = {{mnuFileGetfromCt, Menu::File, 253, "Ctrl+R"}},
               .tool = {{tbRead, 7, 304, Drawing::Read}}},
    CommandRow{.routine = SavePosiFile,
               .button = {{cmdPosiSaveFile, 204, 314, Frame::Position, 1, 0}},
               .entry = {{mnuFileSave, Menu::File, 254, "Ctrl+S", true}},
               .tool = {{tbSave, 3, 302, Drawing::Save}}},
    CommandRow{.routine = SavePosiFileAs,
               .entry = {{mnuFileSaveAs, Menu::File, 255, "Ctrl+Shift+S"}}},
    CommandRow{.routine = WriteToCt,
               .button = {{cmdPosiLoad, 207, 317, Frame::Position, 1, 1}},
               .entry = {{mnuFileLoadtoCt, Menu::File, 256, "Ctrl+L"}},
               .tool = {{tbLoad, 8, 305, Drawing::Load}}},
    CommandRow{.routine = VerifyChoose,
               .button = {{cmdPosiVerify, 205, 315, Frame::Position, 2, 0}},
               .tool = {{tbShogo, 9, 306, Drawing::Shogo}}},
    CommandRow{.routine = PosiDataFileShogo2, .entry = {{mnuFileShogoFile, Menu::FileShogo, 258}}},
    CommandRow{.routine = PosiDataCtShogo, .entry = {{mnuFileShogoCt, Menu::FileShogo, 259}}},
    CommandRow{.routine = PageSetup, .entry = {{mnuFilePageSetup, Menu::File, 260, "", true}}},
    CommandRow{.routine = PrintPosiCommand,
               .entry = {{mnuFilePrint, Menu::File, 261, "Ctrl+P"}},
               .tool = {{tbPrint, 5, 303, Drawing::Print}}},
    // There is no text for closing the document.
    CommandRow{.routine = mnuFileClose_Click,
               .editedCell = GivenUp,
               .entry = {{mnuFileClose, Menu::File, 0, "Ctrl+W"}}},
    CommandRow{.routine = CloseMainWindow,
               .runs = Here,
               .editedCell = GivenUp,
               .entry = {{mnuFileExit, Menu::File, 262, "Ctrl+Q", true, false, true}}},

    CommandRow{.routine = InsertLine_Click,
               .runs = Here,
               .button = {{cmdInsertLine, 208, 318, Frame::Position, 0, 2}},
               .entry = {{mnuEditGyoInsert, Menu::Edit, 266, "Ctrl++"}}},
    CommandRow{.routine = DeleteLine_Click,
               .runs = Here,
               .button = {{cmdDeleteLine, 209, 319, Frame::Position, 1, 2}},
               .entry = {{mnuEditGyoDelete, Menu::Edit, 267, "Ctrl+-"}}},
    CommandRow{.routine = mnuEditLineCopy_Click,
               .runs = Here,
               .entry = {{mnuEditLineCopy, Menu::Edit, 268, "Ctrl+Shift+C", true}},
               .tool = {{tbLineCopy, 11, 307, Drawing::LineCopy}}},
    CommandRow{.routine = mnuEditLinePaste_Click,
               .runs = Here,
               .entry = {{mnuEditLinePaste, Menu::Edit, 269, "Ctrl+Shift+V"}},
               .tool = {{tbLinePaste, 12, 308, Drawing::LinePaste}}},
    CommandRow{.routine = mnuEditCellCopy_Click,
               .runs = Here,
               .entry = {{mnuEditCellCopy, Menu::Edit, 297, "Ctrl+C", true}},
               .tool = {{tbCellCopy, 13, 340, Drawing::CellCopy}}},
    CommandRow{.routine = mnuEditCellPaste_Click,
               .runs = Here,
               .entry = {{mnuEditCellPaste, Menu::Edit, 298, "Ctrl+V"}},
               .tool = {{tbCellPaste, 14, 341, Drawing::CellPaste}}},

    CommandRow{.runs = InWindow,
               .editedCell = LeftAlone,
               .entry = {{mnuViewToolBar, Menu::View, 271, "", false, true}}},
    CommandRow{.runs = InWindow,
               .editedCell = LeftAlone,
               .entry = {{mnuViewStatusBar, Menu::View, 272, "", false, true}}},
    CommandRow{.routine = OpenIoMonitor,
               .button = {{cmdOpenIoWin, 244, 309, Frame::Controller, 0, 0}},
               .entry = {{mnuViewInputOutput, Menu::View, 273, "", true}},
               .tool = {{tbInputOutput, 16, 309, Drawing::InputOutput}}},
    CommandRow{.routine = OpenMoveTest,
               .button = {{cmdOpenMoveWin, 245, 310, Frame::Controller, 1, 0}},
               .entry = {{mnuViewMoveTest, Menu::View, 274}},
               .tool = {{tbMoveTest, 18, 310, Drawing::MoveTest}}},
    CommandRow{.routine = OpenGroups,
               .button = {{cmdOpenGrpWindow, 246, 311, Frame::Controller, 0, 1}},
               .entry = {{mnuViewGroup, Menu::View, 275}},
               .tool = {{tbGroup, 20, 311, Drawing::Group}}},
    CommandRow{.routine = OpenMacros,
               .button = {{cmdSqMcrWinOpen, 247, 312, Frame::Controller, 1, 1}},
               .entry = {{mnuViewSqMacro, Menu::View, 276}},
               .tool = {{tbSqMacro, 22, 312, Drawing::SqMacro}}},
    CommandRow{.routine = OpenTeaching,
               .button = {{cmdJogTeach, 210, 320, Frame::Position, 2, 1}},
               .entry = {{mnuViewTeaching, Menu::View, 277}}},
    CommandRow{.routine = OpenOptions, .entry = {{mnuViewOption, Menu::View, 278, "", true}}},

    CommandRow{.routine = mnuSettingsDeviceOnline_Click,
               .entry = {{mnuSettingsDeviceOnline, Menu::Settings, 281}}},
    CommandRow{.routine = mnuSettingsDeviceOffline_Click,
               .entry = {{mnuSettingsDeviceOffline, Menu::Settings, 282}}},
    CommandRow{.routine = cmdChangeDev_Click,
               .button = {{cmdChangeDev, 41, 0, Frame::Controller, 2, 1}}},
    CommandRow{.routine = OpenParameters,
               .button = {{cmdParaHyoji, 35, 0, Frame::Controller, 2, 0}},
               .entry = {{mnuSettingsDetail, Menu::Settings, 283}}},
    CommandRow{.routine = mnuSettingsOffline_Click,
               .editedCell = LeftAlone,
               .entry = {{mnuSettingsOffline, Menu::Settings, 294, "", true}}},

    CommandRow{.routine = cmdReset_Click,
               .editedCell = LeftAlone,
               .button = {{cmdReset, 216, 0, Frame::OnLine, 0, 0}},
               .entry = {{mnuFuncAlmReset, Menu::FunctionCt, 286}}},
    CommandRow{.routine = mnuFuncCtversion_Click,
               .editedCell = LeftAlone,
               .entry = {{mnuFuncCtversion, Menu::FunctionCt, 287, "", true}}},
    CommandRow{.routine = mnuFuncGetAxis_Click, .entry = {{mnuFuncGetAxis, Menu::FunctionCt, 288}}},
    CommandRow{.entry = {{mnuFuncExternal, Menu::FunctionCt, 295, "", true}}},

    CommandRow{.routine = OpenHelp,
               .runs = Here,
               .editedCell = LeftAlone,
               .entry = {{mnuHelpContents, Menu::Help, 291, "F1"}}},
    CommandRow{.routine = OpenAbout,
               .editedCell = LeftAlone,
               .entry = {{mnuHelpVersion, Menu::Help, 292}}},

    CommandRow{.routine = mnuGridUndo_Click,
               .runs = Here,
               .entry = {{mnuGridUndo, Menu::Grid, 3380, "Ctrl+Z"}}},
    CommandRow{.routine = mnuGridRedo_Click,
               .runs = Here,
               .entry = {{mnuGridRedo, Menu::Grid, 3381, "Ctrl+Shift+Z; Ctrl+Y"}}},
    CommandRow{.runs = InWindow, .entry = {{mnuGridGoTo, Menu::Grid, 3392, "Ctrl+G", true}}},
};

bool EditedCellAllows(EditedCell editedCell) {
    if (editedCell == LeftAlone || !Screens().flgdDataFinishInput ||
        Screens().flgdDataFinishInput()) {
        return true;
    }
    if (editedCell == GivenUp) {
        CancelEdit();
        return true;
    }
    return false;
}

void Start(Command command, const CommandRow& row, const std::function<void()>& routine) {
    // What may be used can have changed since the user chose it.
    if (!IsEnabled(command)) {
        return;
    }
    RunToItsEnd(routine);
    if (CommandsTaken()) {
        return; // it ran inside another command, whose end follows
    }
    GiveEditCommandsBack();
    // A button that was pressed gives the focus back: the next key is meant for the grid, not for
    // the button once more or for the one beside it.
    if (row.editedCell != LeftAlone && Screens().flgdDataFocus) {
        Screens().flgdDataFocus();
    }
}

/// The command of a control, or something in its place, as the command's row says.
void RunAs(Command command, const CommandRow& row, const std::function<void()>& routine) {
    if (!IsEnabled(command)) {
        return;
    }
    // What is half typed belongs to the command from now on, also if that has to wait.
    if (!EditedCellAllows(row.editedCell)) {
        return;
    }
    if (row.runs == Here) {
        const PollHeld held; // nothing begins on the line under a box
        Start(command, row, routine);
        return;
    }
    // While the command waits nothing is typed or selected that it would meet half done.
    std::shared_ptr<GridLock> waiting;
    if (CommandWouldWait() && row.editedCell != LeftAlone) {
        waiting = std::make_shared<GridLock>();
    }
    WhenLineIsFree([command, &row, routine, waiting]() mutable {
        waiting.reset();
        Start(command, row, routine);
    });
}

} // namespace

CommandTable Commands() {
    return {kMenus, kRows};
}

void RegisterCommands() {
    for (const MenuRow& menu : kMenus) {
        if (menu.command) {
            SetBuilt(*menu.command);
        }
    }
    for (const CommandRow& row : kRows) {
        if (row.built()) {
            const auto built = [](const auto& place) {
                if (place) {
                    SetBuilt(place->name);
                }
            };
            built(row.button);
            built(row.entry);
            built(row.tool);
        }
    }
}

void RunCommand(Command command) {
    const CommandRow* row = Commands().find(command);
    if (row != nullptr && row->routine != nullptr) {
        RunAs(command, *row, row->routine);
    }
}

void OpenDroppedPosiFile(const std::vector<std::string>& paths) {
    RunAs(mnuFileOpen, *Commands().find(mnuFileOpen), [paths] {
        const PollHeld held; // nothing begins on the line under the box of a refusal
        OpenDropped(kPosiFile, paths, OpenPosiFile);
    });
}

void GiveEditCommandsBack() {
    if (IsSet(LineSelectedFlag)) {
        EditCMD_Yuko();
    }
}

} // namespace qdw8
