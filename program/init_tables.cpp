#include "program/init_tables.h"

#include "app/Module1.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/move_defaults.h"
#include "app/transfer_dialog.h"
#include "device/device_reset.h"
#include "link/link_reset.h"
#include "motion/motion_reset.h"
#include "parameter/para_reset.h"
#include "position/position_reset.h"
#include "print/print_reset.h"
#include "setup/detail_edit.h"
#include "tables/tables_reset.h"

namespace qdw8 {

void InitTables() {
    ResetMotion(); // gives back the commands that monitoring has
    ResetModule1();
    ResetCommandStates();
    ResetMainPanel();
    ResetTransferDialog();
    ResetMoveDefaults();
    ResetModule3Tusin();
    ResetDevices();
    ResetParameters();
    ResetPositions();
    ResetTables();
    ResetPrint();
    ResetDetailEdit();
}

} // namespace qdw8
