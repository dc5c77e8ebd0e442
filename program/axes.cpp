#include "program/axes.h"

#include "app/command_states.h"
#include "device/Module2Calc.h"
#include "device/axis_texts.h"
#include "link/supervision.h"
#include "position/grid_display.h"

namespace qdw8 {

void RepaintAxes() {
    ShowAxisDevices();
    DispAxisData();
    ShowUnitScale();
}

void CheckAxes_Click() {
    const CommandsAway away;
    mnuFuncGetAxis_Click();
    CompleteAxes();
}

} // namespace qdw8
