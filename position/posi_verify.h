#pragma once

#include <cstdint>

/// The position data on the screen compared with a file or with the controller.
namespace qdw8 {

extern std::int16_t& VerifyFirst; ///< what the file last read and the grid have in common
extern std::int16_t& VerifyLast;

/// Sets `VerifyFirst` and `VerifyLast`. 0 the file and the grid have rows in common; 1 they have
/// none (the variables say nothing then).
std::int16_t CompareFileRange();

/// `mnuFileShogoFile`: asks for a file and a range, and shows the differences or that there is
/// none. The comment and the axes out of use are not compared. Neither grid nor table are changed
/// but by the check that commits the grid.
void PosiDataFileShogo2();
/// `mnuFileShogoCt`: the same with the controller.
void PosiDataCtShogo();
/// `cmdPosiVerify` and the tool bar: asks which of the two.
void VerifyChoose();

void ResetVerify();

} // namespace qdw8
