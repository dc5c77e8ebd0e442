#include "tables/macros.h"

#include "link/ct_commands.h"
#include "tables/sm_form.h"
#include "tables/sm_table.h"

namespace qdw8 {

const SmallTable& Macros() {
    static const SmallTable macros{
        .rows = kMacros,
        .fields = kSmSteps * kSmFields,
        .take = TakeMacros,
        .put = PutMacros,
        .settle = SettleMacros,
        .check = SmData_Check,
        .shown = [] { ShowMacro(); },
        .turnTo = ShowMacro,
        .state = SmState,
        .file = {.toOpen = {930, "smd"},
                 .toSave = {930, "smd"},
                 .controllers = {"QD-K8"},
                 .kind = "SM",
                 .sizes = "16,2,20",
                 .sizeFields = 3,
                 .rowAlone = true,
                 .fieldsInLine = kSmFields},
        .line = {.read = ReadMacro,
                 .write = WriteMacro,
                 .commit = CommitMacros,
                 .writeWord = "0WS",
                 .committed = "0WE1",
                 .digits = 1,
                 .lastCompared = true,
                 .reading = {.maximum = 20, .textId = 368, .cancel = false, .firstValue = 1},
                 .writing = {.maximum = 21, .textId = 383, .cancel = false, .firstValue = 1}},
        .texts = {.askRead = 920,
                  .readStopped = 0,
                  .openTitle = 928,
                  .readFailed = 931,
                  .otherKind = 0,
                  .saveTitle = 933,
                  .saveName = 934,
                  .saveFailed = 935,
                  .verifyTitle = 936,
                  .verifyGood = 926,
                  .verifyBad = {923, 924, 925},
                  .askWrite = 937,
                  .badData = {921, 922, 938},
                  .badDataWritten = {921, 922, 938},
                  .askPrintShown = 927,
                  .askPrintFile = 0,
                  .printTitle = 932},
        .look = &ScreenFunctions::frmSqMcr,
        .print = &ScreenFunctions::PrintSmData,
    };
    return macros;
}

const TableCommands& SmCommands() {
    static constexpr TableCommands commands{{
        {"cmdReadSMfromCt", 906, ReadTable, Wants::Line},
        {"cmdWriteSMtoCt", 907, WriteTable, Wants::Line},
        {"cmdSmCTShogo", 908, VerifyWithController, Wants::Line},
        {"cmdSmFileOpen", 909, OpenTable},
        {"cmdSmFileSave", 910, SaveTable},
        {"cmdSmFileShogo", 911, VerifyWithFile},
        {"cmdSMDispPrint", 912, PrintShown, Wants::Printing},
        {"cmdSMFilePrint", 913, PrintFile, Wants::Printing},
    }};
    return commands;
}

void SM_CMDBTN_Muko() {
    SetCommandsOff(Macros(), true);
}

void SM_CMDBTN_Yuko() {
    SetCommandsOff(Macros(), false);
}

} // namespace qdw8
