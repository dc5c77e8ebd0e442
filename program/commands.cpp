#include "program/commands.h"

#include "app/boxes.h"
#include "app/screens.h"
#include "link/background.h"
#include "platform/platform.h"
#include "position/grid_clipboard.h"
#include "position/grid_lines.h"
#include "position/posi_file.h"
#include "position/posi_new.h"
#include "position/posi_verify.h"
#include "setup/change_device.h"
#include "setup/line_commands.h"
#include "setup/posi_open.h"
#include "setup/posi_read.h"
#include "setup/posi_write.h"

#include <algorithm>
#include <array>
#include <exception>

namespace qdw8 {
namespace {

using enum Command;

struct Entry {
    Command command;
    void (*routine)();
};

void CloseMainWindow() {
    Screens().frmMainClose();
}

/// The printer dialog for the page set-up; what was chosen stands when something is printed.
void PageSetup() {
    constexpr int kPageSetup = 64;
    ThePlatform().CommonDialog1.ShowPrinter({kPageSetup, 1});
}

/// A menu has no routine of its own.
void NoRoutine() {}

constexpr std::array kEntries{
    Entry{cmdPosiRead, ReadFromCt},
    Entry{mnuFileGetfromCt, ReadFromCt},
    Entry{tbRead, ReadFromCt},
    Entry{cmdPosiSaveFile, SavePosiFile},
    Entry{mnuFileSave, SavePosiFile},
    Entry{tbSave, SavePosiFile},
    Entry{mnuFileSaveAs, SavePosiFileAs},
    Entry{mnuFileNew, mnuFileNew_Click},
    Entry{tbNew, mnuFileNew_Click},
    Entry{cmdPosiFileOpen, OpenPosiFile},
    Entry{mnuFileOpen, OpenPosiFile},
    Entry{tbOpen, OpenPosiFile},
    Entry{cmdPosiLoad, WriteToCt},
    Entry{mnuFileLoadtoCt, WriteToCt},
    Entry{tbLoad, WriteToCt},
    Entry{cmdPosiVerify, VerifyChoose},
    Entry{tbShogo, VerifyChoose},
    Entry{mnuFileShogo, NoRoutine},
    Entry{mnuFileShogoFile, PosiDataFileShogo2},
    Entry{mnuFileShogoCt, PosiDataCtShogo},
    Entry{cmdInsertLine, InsertLine_Click},
    Entry{mnuEditGyoInsert, InsertLine_Click},
    Entry{cmdDeleteLine, DeleteLine_Click},
    Entry{mnuEditGyoDelete, DeleteLine_Click},
    Entry{mnuEditLineCopy, mnuEditLineCopy_Click},
    Entry{tbLineCopy, mnuEditLineCopy_Click},
    Entry{mnuEditLinePaste, mnuEditLinePaste_Click},
    Entry{tbLinePaste, mnuEditLinePaste_Click},
    Entry{mnuEditCellCopy, mnuEditCellCopy_Click},
    Entry{tbCellCopy, mnuEditCellCopy_Click},
    Entry{mnuEditCellPaste, mnuEditCellPaste_Click},
    Entry{tbCellPaste, mnuEditCellPaste_Click},
    Entry{mnuFilePageSetup, PageSetup},
    Entry{mnuFileClose, mnuFileClose_Click},
    Entry{mnuFileExit, CloseMainWindow},
    Entry{cmdChangeDev, cmdChangeDev_Click},
    Entry{mnuSettingsDeviceOffline, mnuSettingsDeviceOffline_Click},
    Entry{mnuSettingsDeviceOnline, mnuSettingsDeviceOnline_Click},
    Entry{cmdReset, cmdReset_Click},
    Entry{mnuFuncAlmReset, cmdReset_Click},
    Entry{mnuFuncCtversion, mnuFuncCtversion_Click},
    Entry{mnuFuncGetAxis, mnuFuncGetAxis_Click},
    Entry{mnuSettingsOffline, mnuSettingsOffline_Click},
    Entry{mnuEdit, NoRoutine},
    Entry{mnuView, NoRoutine},
    Entry{mnuSettings, NoRoutine},
    Entry{mnuFunctionCt, NoRoutine},
};

/// Out of the wait of a background exchange a command runs when that has ended, if it may be used
/// then.
void RunNow(Command command) {
    if (!IsEnabled(command)) {
        return;
    }
    const auto* entry = std::find_if(kEntries.begin(), kEntries.end(),
                                     [command](const Entry& e) { return e.command == command; });
    if (entry == kEntries.end()) {
        return;
    }
    try {
        entry->routine();
    } catch (const std::exception&) {
        ShowTexts(
            {397}); // each routine has a handler of its own; this keeps the rest from the toolkit
    }
}

} // namespace

void RegisterCommands() {
    for (const Entry& entry : kEntries) {
        SetBuilt(entry.command);
    }
}

void RunCommand(Command command) {
    if (IsEnabled(command)) {
        WhenLineIsFree([command] { RunNow(command); });
    }
}

} // namespace qdw8
