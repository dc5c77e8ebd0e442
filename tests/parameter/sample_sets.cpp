#include "parameter/sample_sets.h"

#include <algorithm>
#include <string>

namespace qdw8::test {

namespace {

void SetParts(ParameterSet& set, std::size_t axis, const ActuatorParts& parts) {
    set.parts[axis] = parts;
    set.Actuator[axis] = BuildActuator(parts);
}

} // namespace

ParameterSet SampleSet() {
    ParameterSet set;
    int next = 1;
    EachItem([&](const ParaItem& item, std::size_t axis) {
        const int width = std::min(item.high - item.low + 1, 200);
        SetParaValue(set, item, axis, item.low + next++ % width);
    });
    set.ACC_DCC = 0;
    set.AXIS = 15;
    SetParts(set, 0, {" 61", "H", 300});
    SetParts(set, 1, {" 44", "L", 50});
    SetParts(set, 2, {"J52", "L", 100});
    SetParts(set, 3, {" 33", "L", 200});
    return set;
}

ParameterSet RandomSet(std::mt19937& random) {
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution(low, high)(random);
    };
    ParameterSet set;
    EachItem([&](const ParaItem& item, std::size_t axis) {
        const bool acceleration = item.row == kRowACC_DCC;
        SetParaValue(set, item, axis, acceleration ? pick(0, 255) : pick(item.low, item.high));
    });
    const std::array<std::string, 6> models{" 33L", " 44H", " 52L", " 61F", " 71Z", "J52L"};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const std::string model = models[static_cast<std::size_t>(pick(0, 5))];
        const auto stroke = static_cast<std::int16_t>(pick(0, 500));
        SetParts(set, axis, {model.substr(0, 3), model.substr(3), stroke});
    }
    return set;
}

} // namespace qdw8::test
