#pragma once

// The windows beside the main one, and what they are opened with.

#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "position/check_result.h"
#include "position/posi_reader.h"
#include "position/posi_verify.h"
#include "windows/device/frmDevice2.h"
#include "windows/device/frmDevice3.h"
#include "windows/dialogs/frmDataShogo.h"
#include "windows/dialogs/frmGiveUp.h"
#include "windows/dialogs/frmProcessing.h"
#include "windows/dialogs/frmSelectPosiNo2.h"
#include "windows/dialogs/frmSelectPosiNo3.h"
#include "windows/dialogs/frmSelectPosiNo4.h"
#include "windows/dialogs/frmSelection.h"
#include "windows/dialogs/frmSyogoKekka.h"
#include "windows/dialogs/frmTrance.h"
#include "windows/parameter/frmDevice.h"
#include "windows/parameter/frmParameta2.h"
#include "windows/tables/frmGrp.h"
#include "windows/tables/frmSqMcr.h"
