#pragma once

#include "tables/table_commands.h"

/// The sequence macros as a small table, and the commands of their window `frmSqMcr`.
namespace qdw8 {

const SmallTable& Macros();
/// In the order of their captions.
const TableCommands& SmCommands();

/// Take the commands of the window away and give them back.
void SM_CMDBTN_Muko();
void SM_CMDBTN_Yuko();

} // namespace qdw8
