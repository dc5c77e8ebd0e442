#pragma once

#include <cstdint>

/// Reading the parameters from the controller and writing them there.
namespace qdw8 {

/// Reads everything into `ParaSet` and the fields: offers to save first, takes the axes in use from
/// the controller and compares the actuators. 0 done; 1 not (the user was told, or ended it), and
/// `ParaSet` is as the saving left it. The axes in use follow the controller as soon as they were
/// read, and `CompleteAxes` sees to those of which nothing was known; but where the user refuses
/// the controller's actuators, an axis that would be new stays out of use and nothing is read for
/// it.
std::int16_t GetParametaValue();

/// The axes in use and all blocks into `ParaSet`, without a question. 0 good; 1 failed after a box,
/// `ParaSet` is as it was.
std::int16_t GetParametaValue2();

/// `cmdParaWrite`: the fields to the controller, and on request what it then holds back into the
/// program. Every way out has told the user or was the user's own, and has completed the axes.
void cmdParaWrite_Click();

} // namespace qdw8
