#pragma once

/// The command that reads the position table from the controller.
namespace qdw8 {

/// `mnuFileGetfromCt` and its kin, from the question about unsaved data to the filled grid.
void ReadFromCt();

} // namespace qdw8
