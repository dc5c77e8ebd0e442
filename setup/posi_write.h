#pragma once

/// The command that writes the position table to the controller.
namespace qdw8 {

/// `mnuFileLoadtoCt` and its kin, from the range to the controller being back in its normal mode.
/// A run that stops before its last row leaves the controller in the writing mode.
void WriteToCt();

} // namespace qdw8
