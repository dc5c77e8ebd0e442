#include "program/commands.h"

#include "app/screens.h"
#include "link/supervision.h"
#include "position/posi_file.h"
#include "position/posi_transfer.h"

#include <algorithm>
#include <array>

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
    Entry{mnuFileExit, CloseMainWindow},
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

} // namespace

void RegisterCommands() {
    for (const Entry& entry : kEntries) {
        SetBuilt(entry.command);
    }
}

void RunCommand(Command command) {
    if (IsEnabled(command)) {
        RunInAnyCase(command);
    }
}

void RunInAnyCase(Command command) {
    const auto* entry = std::find_if(kEntries.begin(), kEntries.end(),
                                     [command](const Entry& e) { return e.command == command; });
    if (entry != kEntries.end()) {
        entry->routine();
    }
}

} // namespace qdw8
