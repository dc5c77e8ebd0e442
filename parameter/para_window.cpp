#include "parameter/para_window.h"

#include "app/command_states.h"
#include "device/device_list.h"
#include "link/window_command.h"
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
    if (ParaSetHasMovedOn()) {
        ParaName.clear();
    }
    if (IsSet(ParaLoadedFlag)) {
        ParametaHyoji();
    } else {
        ShowNoParameters();
    }
}

void FollowParaSet() {
    if (CommandsTaken()) {
        return;
    }
    if (!IsSet(ParaEditedFlag) && IsSet(ParaLoadedFlag) && ParaSetHasMovedOn()) {
        ParaName.clear();
        ParametaHyoji();
    } else if (AxesHaveMovedOn()) {
        YukoJikuHyojiSettei(); // edits of the axes in use stay
    }
}

bool ParaMayClose() {
    if (CommandsTaken()) {
        return false;
    }
    if (IsSet(ParaEditedFlag) && !MayLoseEdits([] { return SaveParameters() == 0; })) {
        return false;
    }
    GiveUpParaEdits();
    return true;
}

} // namespace qdw8
