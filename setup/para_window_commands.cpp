#include "setup/para_window_commands.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/command_states.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "link/batch.h"
#include "link/window_command.h"
#include "parameter/para_device.h"
#include "parameter/para_field_check.h"
#include "parameter/para_fields.h"
#include "parameter/para_file.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"
#include "parameter/para_transfer.h"
#include "parameter/para_verify.h"
#include "setup/controller_devices.h"
#include "setup/device_copies.h"
#include "setup/devices_before.h"
#include "setup/para_commands.h"
#include "setup/repaint_axes.h"

#include <array>
#include <string>

namespace qdw8 {
namespace {

constexpr std::array<ParaCommandRow, 10> kButtons = {{
    {"cmdParaRead", 613, cmdParaRead_Click, true},
    {"cmdParaWrite", 614, cmdParaWrite_Click, true},
    {"cmdConpareCT", 615, cmdConpareCT_Click, true},
    {"cmdReadParaFile", 616, cmdReadParaFile_Click},
    {"cmdSaveParaFile", 617, cmdSaveParaFile_Click},
    {"cmdConpareFile", 618, cmdConpareFile_Click},
    {"cmdParaPrint", 608, cmdParaPrint_Click},
    {"cmdParaFilePrint", 607, cmdParaFilePrint_Click},
    {"cmdIniPrm", 609, cmdIniPrm_Click},
    {"cmdCalculate", 0, cmdCalculate_Click},
}};

bool FieldsTaken() {
    return TakeParaFields(1524, 1525);
}

bool Confirmed(std::int16_t questionId) {
    return AskBox(ResText(questionId), BoxButtons::OkCancel) == BoxAnswer::Ok;
}

void CompareAndReport() {
    CompareParaSet();
    ShowParaReport();
}

bool ReadForVerify() {
    const LineBatch batch;
    return ReadAllBlocks() == 0;
}

void Print() {
    if (Screens().PrintParaData) {
        Screens().PrintParaData(CellText(ParaRowTable.at(0, kRowFileName)));
    }
}

/// The choice of the actuators may have changed the axes in use. One of which nothing is known goes
/// again, and the parameters don't ask for it either.
void FinishChosenAxes(const std::array<Flag, kAxes>& axesBefore) {
    if (AxisOff == axesBefore) {
        return;
    }
    RepaintAxes();
    if (CompleteAxes() && IsSet(ParaLoadedFlag)) {
        ParaSet.AXIS = static_cast<std::int16_t>(AxisMaskOf(AxisOff));
    }
    YukoJikuHyojiSettei();
}

} // namespace

std::span<const ParaCommandRow> ParaCommands() {
    return kButtons;
}

bool ParaCommandEnabled(const ParaCommandRow& command) {
    if (CommandsTaken() || (command.onLine && LineReserved())) {
        return false;
    }
    if (command.routine == cmdParaPrint_Click || command.routine == cmdParaFilePrint_Click) {
        return static_cast<bool>(Screens().PrintParaData);
    }
    return command.routine != cmdCalculate_Click || Screens().frmDeviceShow;
}

void cmdParaRead_Click() {
    GetParametaValue();
}

void cmdReadParaFile_Click() {
    if (OpenParaFile() == 0) {
        ParaEditedFlag = kClear;
        ParaName = CellText(ParaRowTable.at(0, kRowFileName));
        ParametaHyoji();
    }
}

void cmdSaveParaFile_Click() {
    SaveParameters();
}

void cmdConpareCT_Click() {
    if (FieldsTaken() && ReadForVerify()) {
        CompareAndReport();
    }
}

void cmdConpareFile_Click() {
    if (FieldsTaken() && Confirmed(679) && AskAndReadParaFile(680) == 0) {
        CompareAndReport();
    }
}

void cmdParaPrint_Click() {
    if (FieldsTaken() && Confirmed(684)) {
        FillRowTable(kShownName);
        Print();
    }
}

void cmdParaFilePrint_Click() {
    if (Confirmed(682) && AskAndReadParaFile(683) == 0) {
        Print();
    }
}

void cmdIniPrm_Click() {
    const DevicesBefore before;
    const auto axesBefore = AxisOff;
    if (SelectDeviceAndLoadFactory() != 0) {
        before.putBack();
        return;
    }
    FinishChosenAxes(axesBefore);
    // The choice was for the parameters: until they are written and reflected the actuators stay.
    LetDevSettingToDevSettei();
    ParaEditedFlag = kSet;
    ParaName.clear();
    ParametaHyoji();
}

void cmdCalculate_Click() {
    ShowModal(Screens().frmDeviceShow);
}

} // namespace qdw8
