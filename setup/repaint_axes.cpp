#include "setup/repaint_axes.h"

#include "device/Module2Calc.h"
#include "device/axis_texts.h"
#include "position/grid_display.h"

namespace qdw8 {

void RepaintAxes() {
    ShowAxisDevices();
    DispAxisData();
    ShowUnitScale();
}

} // namespace qdw8
