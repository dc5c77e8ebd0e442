#include "parameter/sample_sets.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace qdw8::test {

ParameterSet SampleSet() {
    ParameterSet set;
    std::int16_t next = 1;
    for (const ParaItem& item : ParaItems()) {
        for (std::size_t axis = 0; axis < (item.perAxis() ? kAxes : 1); ++axis) {
            const int width = std::min(item.high - item.low + 1, 200);
            SetParaValue(set, item, axis, item.low + next++ % width);
        }
    }
    set.ACC_DCC = 0;
    set.AXIS = 15;
    set.parts = {{{" 61", "H", 300}, {" 44", "L", 50}, {"J52", "L", 100}, {" 33", "L", 200}}};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        set.Actuator[axis] = BuildActuator(set.parts[axis]);
    }
    return set;
}

ParameterSet RandomSet(std::mt19937& random) {
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    ParameterSet set;
    for (const ParaItem& item : ParaItems()) {
        const bool acceleration = item.row == kRowACC_DCC;
        for (std::size_t axis = 0; axis < (item.perAxis() ? kAxes : 1); ++axis) {
            SetParaValue(set, item, axis, acceleration ? pick(0, 255) : pick(item.low, item.high));
        }
    }
    const std::vector<std::pair<std::string, std::string>> models = {
        {" 33", "L"}, {" 44", "H"}, {" 52", "L"}, {" 61", "F"}, {" 71", "Z"}, {"J52", "L"}};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const auto& model = models[static_cast<std::size_t>(pick(0, 5))];
        set.parts[axis] = {model.first, model.second, static_cast<std::int16_t>(pick(0, 500))};
        set.Actuator[axis] = BuildActuator(set.parts[axis]);
    }
    return set;
}

} // namespace qdw8::test
