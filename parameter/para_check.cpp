#include "parameter/para_check.h"

#include "parameter/para_set.h"

namespace qdw8 {
namespace {

constexpr std::size_t kSizeLength = 3;
constexpr std::int16_t kLongestStroke = 500; // mm

bool ValueGood(const ParaItem& item, std::size_t axis) {
    const double value = ParaValue(ParaSet, item, axis);
    return value >= item.low && value <= item.high;
}

bool ActuatorGood(std::size_t axis) {
    const ActuatorParts& parts = ParaSet.parts[axis];
    return !ParaSet.Actuator[axis].empty() && SizeCodeGood(parts.size) &&
           SpeedLetterGood(parts.speed) && DeviceStrokeGood(parts.stroke);
}

enum class Scope { All, ForDevice };

bool AxisGood(std::size_t axis, Scope scope) {
    for (const ParaItem& item : ParaItems()) {
        const bool looked = item.perAxis() && (scope == Scope::All || item.forDevice);
        if (looked && !ValueGood(item, axis)) {
            return false;
        }
    }
    return ActuatorGood(axis);
}

bool AxesGood(Scope scope) {
    for (std::size_t axis = 0; axis < AxisOff.size(); ++axis) {
        if (!IsSet(AxisOff[axis]) && !AxisGood(axis, scope)) {
            return false;
        }
    }
    return true;
}

bool CommonGood() {
    for (const ParaItem& item : ParaItems()) {
        if (!item.perAxis() && !ValueGood(item, 0)) {
            return false;
        }
    }
    return true;
}

} // namespace

bool SizeCodeGood(const std::string& size) {
    return size.size() == kSizeLength;
}

bool SpeedLetterGood(const std::string& speed) {
    return !speed.empty();
}

bool DeviceStrokeGood(double stroke) {
    return stroke >= 0 && stroke <= kLongestStroke;
}

bool DeviceFiguresGood(std::size_t axis) {
    return ValueGood(ItemOfRow(kRowSTROKE), axis) && ValueGood(ItemOfRow(kRowLEAD), axis) &&
           ValueGood(ItemOfRow(kRowPULSE), axis) && ActuatorGood(axis);
}

std::int16_t ParametaValueCheck() {
    return AxesGood(Scope::All) && CommonGood() ? 0 : 1;
}

std::int16_t ParametaValueCheck2() {
    return AxesGood(Scope::ForDevice) ? 0 : 1;
}

} // namespace qdw8
