#include "parameter/para_window.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/string_table.h"
#include "device/device_list.h"
#include "link/background.h"
#include "parameter/para_fields.h"
#include "parameter/para_file.h"
#include "parameter/para_marks.h"
#include "parameter/para_set.h"

namespace qdw8 {

void LoadParameta2() {
    ParaFields = {};
    ParaStates = {};
    ParaEditedFlag = kClear;
    ClearParaMarks();
    LoadDeviceListSizes();
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        FollowActuator(axis);
    }
    if (IsSet(ParaLoadedFlag)) {
        ParametaHyoji();
    } else {
        YukoJikuHyojiSettei();
    }
}

bool ParaMayClose() {
    if (CommandsTaken()) {
        return false;
    }
    if (!IsSet(ParaEditedFlag)) {
        return true;
    }
    const CommandsAway away;
    const PollHeld held; // nothing begins on the line under a question
    switch (AskBox(ResText(394), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes: return SaveParameters() == 0;
    case BoxAnswer::No: ParaEditedFlag = kClear; return true;
    default: return false;
    }
}

} // namespace qdw8
