#include "setup/controller_settings.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/string_table.h"
#include "link/axis_mask.h"
#include "setup/controller_devices.h"
#include "setup/device_bytes.h"

namespace qdw8 {
namespace {

/// 0 alike, 1 different, -1 the controller couldn't be asked.
std::int16_t CompareWithController() {
    if (ReadAxisMaskQuiet() != 0) {
        return -1;
    }
    return CtAxisOff != AxisOff ? std::int16_t{1} : CompareDeviceSettings();
}

} // namespace

std::int16_t MatchControllerSettings() {
    const std::int16_t compared = CompareWithController();
    if (compared != 1) {
        return compared;
    }
    const std::int16_t choice =
        AskChoice({ResText(471), ResText(371), {ResText(372), ResText(373)}, false});
    if (choice == kSelectionCancelled) {
        return 1;
    }
    if (choice != 0) {
        return 0;
    }
    const auto axesBefore = AxisOff;
    AxisOff = CtAxisOff;
    if (TakeOverDevicesOfController() != 0) {
        AxisOff = axesBefore;
        return -1;
    }
    return 0;
}

} // namespace qdw8
