#include "program/shutdown.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/command_states.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "link/background.h"
#include "link/port.h"
#include "link/stop.h"
#include "link/window_command.h"
#include "motion/teach_clicks.h"
#include "parameter/para_fields.h"
#include "parameter/para_file.h"
#include "position/posi_file.h"
#include "position/posi_table.h"
#include "position/recovery.h"
#include "tables/groups.h"
#include "tables/macros.h"

#include <algorithm>
#include <array>

namespace qdw8 {

namespace {

/// A window beside the main one and the edits in it.
struct Editor {
    bool (*edited)();
    bool (*save)();
    void (*bringToFront)();
};
constexpr std::array kEditors{
    Editor{[] { return IsSet(ParaEditedFlag); }, [] { return SaveParameters() == 0; },
           [] { Screens().frmParameta2Show(false); }},
    Editor{[] { return Groups().state.unsaved; }, [] { return SaveEdits(Groups()); },
           [] { Screens().frmGrpShow(); }},
    Editor{[] { return Macros().state.unsaved; }, [] { return SaveEdits(Macros()); },
           [] { Screens().frmSqMcrShow(); }},
};

/// The question is about the window in front.
bool MayLose(const Editor& editor) {
    if (!editor.edited()) {
        return true;
    }
    editor.bringToFront();
    return MayLoseEdits(editor.save);
}

/// The question is about the data of the main window.
bool MayLosePositions() {
    if (!IsSet(PosiDirtyFlag)) {
        return AskBox(ResText(390), BoxButtons::OkCancel) == BoxAnswer::Ok;
    }
    switch (AskBox(ResText(391), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes: SavePosiFileAs(); return !IsSet(PosiDirtyFlag);
    case BoxAnswer::No: return true;
    default: return false;
    }
}

bool UserConfirms() {
    const PollHeld held; // nothing begins on the line under a question
    if (!std::all_of(kEditors.begin(), kEditors.end(), MayLose)) {
        return false;
    }
    if (Screens().frmMainFront) {
        Screens().frmMainFront();
    }
    const bool confirmed = MayLosePositions();
    if (!confirmed && Screens().frmMainBack) {
        Screens().frmMainBack(); // the next key is meant for the window that it was pressed in
    }
    return confirmed;
}

} // namespace

bool frmMain_QueryUnload() {
    if (IsSet(ProgramEndFlag) || !TeachingAllowsEnd() || !UserConfirms()) {
        return false;
    }
    EndKeeping();
    if (LastStop != Stop::Failed) {
        SetMotionRuns(false); // what has gone out is never cut short by an end that was asked for
    }
    if (CommandsTaken()) {
        ProgramEndFlag = kSet;
        return false;
    }
    CloseCtPortForce();
    return true;
}

} // namespace qdw8
