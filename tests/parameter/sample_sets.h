#pragma once

#include "parameter/para_set.h"

#include <random>

namespace qdw8::test {

/// A set that passes the check, different in every item and on every axis where the limits allow.
ParameterSet SampleSet();

/// Any set that passes the check, of actuators that the family has. The acceleration setting is
/// held to the byte that it gets in the controller.
ParameterSet RandomSet(std::mt19937& random);

/// Each item, and each axis of those that stand for every axis: `visit(item, axis)`.
template<typename Visit> void EachItem(Visit visit) {
    for (const ParaItem& item : ParaItems()) {
        for (std::size_t axis = 0; axis < (item.perAxis() ? kAxes : 1); ++axis) {
            visit(item, axis);
        }
    }
}

} // namespace qdw8::test
