#pragma once

#include "parameter/para_controls.h"

#include <string>

/// The fields that the last check refused.
namespace qdw8 {

enum class ParaMark {
    None,
    Empty,      ///< nothing stands in it
    OutOfRange, ///< its number is beyond the limits of the check
    NoActuator  ///< this part of the actuator names none
};

ParaMark ParaMarkOf(ParaControl control, std::size_t axis);
void SetParaMark(ParaControl control, std::size_t axis, ParaMark mark);
void ClearParaMarks();
/// Those of one axis; the controls that stand once keep theirs.
void ClearParaMarks(std::size_t axis);

/// The tool tip of a field: the reason of its mark, if it has one, and on the next line ("\n") the
/// limits that the check holds it to; empty for a list without a mark.
std::string ParaFieldTip(ParaControl control, std::size_t axis);

} // namespace qdw8
