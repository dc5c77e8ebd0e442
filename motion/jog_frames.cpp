#include "motion/jog_frames.h"

#include "app/Module1.h"
#include "app/move_defaults.h"
#include "app/number_forms.h"
#include "device/axis_device.h"

namespace qdw8 {
namespace {

std::size_t AxisOf(std::size_t button) {
    return button / 2;
}

bool IsPlus(std::size_t button) {
    return button % 2 == 0;
}

} // namespace

std::string JogData(std::size_t button, int percent) {
    std::string data(kAxes, '0');
    data.at(AxisOf(button)) = IsPlus(button) ? '1' : '2';
    return data + std::to_string(percent >= 10 && percent <= 90 ? percent / 10 : 0);
}

std::optional<std::int32_t> InchingTarget(std::size_t button, int step, std::int32_t position,
                                          std::int32_t end) {
    if (IsPlus(button)) {
        if (position == end) {
            return std::nullopt;
        }
        return position + step;
    }
    if (position == 0) {
        return 0;
    }
    if (position < step) {
        return std::nullopt;
    }
    return position - step;
}

std::string InchingData(std::size_t button, std::int32_t target) {
    std::string data;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const bool moves = axis == AxisOf(button);
        data += HexField(VelOf100Pls, 2);
        data += HexField(IsSpecialModel(DevSetting[axis]) ? AccOf100Pls2 : AccOf100Pls, 1);
        data += moves ? "1" : "0";
        data += HexField(moves ? target : 0, 5);
    }
    return data;
}

} // namespace qdw8
