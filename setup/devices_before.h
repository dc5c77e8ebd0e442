#pragma once

#include "app/Module1.h"
#include "device/axis_device.h"
#include "parameter/para_set.h"

#include <array>
#include <string>

namespace qdw8 {

/// All that says which actuators are fitted, as it was when the object was made: to go back to
/// where a change comes to no end. Half a device is none: a model without its lead would convert
/// positions by a stranger's figures.
class DevicesBefore {
public:
    void putBack() const;
    /// The same but for the axes in use.
    void putBackButAxes() const;
    /// True if the program works with other axes or actuators now.
    bool haveChanged() const;

private:
    std::array<AxisDevice, kAxes> setting = DevSetting;
    std::array<AxisDevice, kAxes> settei = DevSettei;
    std::array<std::string, kAxes> family = FamilyText;
    std::array<Flag, kAxes> off = AxisOff;
    std::array<Flag, kAxes> fileOff = FileAxisOff;
    ParameterSet parameters = ParaSet;
};

} // namespace qdw8
