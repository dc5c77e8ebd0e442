#include "program/shutdown.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/command_states.h"
#include "app/string_table.h"
#include "link/background.h"
#include "link/port.h"
#include "position/posi_file.h"
#include "position/posi_table.h"

namespace qdw8 {

namespace {

bool UserConfirms() {
    const PollHeld held; // nothing begins on the line under a question
    if (!IsSet(PosiDirtyFlag)) {
        return AskBox(ResText(390), BoxButtons::OkCancel) == BoxAnswer::Ok;
    }
    switch (AskBox(ResText(391), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes: SavePosiFileAs(); return !IsSet(PosiDirtyFlag);
    case BoxAnswer::No: return true;
    default: return false;
    }
}

} // namespace

bool frmMain_QueryUnload() {
    if (IsSet(ProgramEndFlag) || !UserConfirms()) {
        return false;
    }
    if (CommandsTaken()) {
        ProgramEndFlag = kSet;
        return false;
    }
    CloseCtPortForce();
    return true;
}

} // namespace qdw8
