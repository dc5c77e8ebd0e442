#pragma once

#include "tables/table_commands.h"

/// The groups as a small table, and the commands of their window `frmGrp`.
namespace qdw8 {

const SmallTable& Groups();
/// In the order of their captions.
const TableCommands& GrpCommands();

/// Take the commands of the window away and give them back.
void GrpCMDBTN_Muko();
void GrpCMDBTN_Yuko();

} // namespace qdw8
