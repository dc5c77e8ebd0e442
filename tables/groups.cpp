#include "tables/groups.h"

#include "link/ct_commands.h"
#include "tables/grp_form.h"
#include "tables/grp_table.h"

namespace qdw8 {

const SmallTable& Groups() {
    static const SmallTable groups{
        .rows = kGroups,
        .fields = kGrpFields,
        .take = TakeGroups,
        .put = PutGroups,
        .settle = nullptr,
        .check = GrpData_Check,
        .shown = [] { TellWindow(Groups()); },
        .turnTo = [](int row) { ShowGrpPage((row - 1) / kGrpPageRows); },
        .state = GrpState,
        .file = {.toOpen = {828, "grp"},
                 .toSave = {831, "grp"},
                 .controllers = {"QD-K8", "QD-K6"},
                 .kind = "GRP",
                 .sizes = "99,3",
                 .sizeFields = 2,
                 .rowAlone = false,
                 .fieldsInLine = kGrpFields},
        .line = {.read = ReadGroup,
                 .write = WriteGroup,
                 .commit = CommitGroups,
                 .writeWord = "0WG",
                 .committed = "0WE3",
                 .digits = 3,
                 .lastCompared = false,
                 .reading = {.maximum = 98, .textId = 368, .cancel = true, .firstValue = 0},
                 .writing = {.maximum = 100, .textId = 383, .cancel = false, .firstValue = 1}},
        .texts = {.askRead = 835,
                  .readStopped = 425,
                  .openTitle = 827,
                  .readFailed = 484,
                  .otherKind = 19,
                  .saveTitle = 832,
                  .saveName = 833,
                  .saveFailed = 18,
                  .verifyTitle = 834,
                  .verifyGood = 826,
                  .verifyBad = {823, 824, 825},
                  .askWrite = 839,
                  .badData = {820, 821},
                  .badDataWritten = {820, 836, 837, 838},
                  .askPrintShown = 0,
                  .askPrintFile = 829,
                  .printTitle = 830},
        .look = &ScreenFunctions::frmGrp,
        .print = &ScreenFunctions::PrintGrpData,
    };
    return groups;
}

const TableCommands& GrpCommands() {
    static constexpr TableCommands commands{{
        {"cmdReadGrp", 805, ReadTable, Wants::Line},
        {"cmdGrpFileOpen", 806, OpenTable},
        {"cmdWriteGrp", 807, WriteTable, Wants::Line},
        {"cmdGrpFileSave", 808, SaveTable},
        {"cmdGrpCtVerify", 809, VerifyWithController, Wants::Line},
        {"cmdGrpFileVerify", 810, VerifyWithFile},
        {"cmdGrpDataPrint", 811, PrintShown, Wants::Printing},
        {"cmdGrpFilePrint", 812, PrintFile, Wants::Printing},
    }};
    return commands;
}

void GrpCMDBTN_Muko() {
    SetCommandsOff(Groups(), true);
}

void GrpCMDBTN_Yuko() {
    SetCommandsOff(Groups(), false);
}

} // namespace qdw8
