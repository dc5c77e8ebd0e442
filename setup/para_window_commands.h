#pragma once

#include <cstdint>
#include <span>

/// The commands of the parameter window. Each has told the user what became of it. They run as
/// every command of a window does (`RunWindowCommand`).
namespace qdw8 {

struct ParaCommandRow {
    const char* name;    ///< of the button
    std::int16_t textId; ///< its caption, 0 for none
    void (*routine)();
    bool onLine = false; ///< it talks to the controller
};
/// The buttons in the order in which the eye finds them.
std::span<const ParaCommandRow> ParaCommands();
/// True for a button that may be used now. One that prints needs somebody who prints,
/// one that talks to the controller the line.
bool ParaCommandEnabled(const ParaCommandRow& command);

void cmdParaRead_Click();
void cmdReadParaFile_Click();
void cmdSaveParaFile_Click();
/// What is shown, compared with the controller or with a file; the report names each difference.
void cmdConpareCT_Click();
void cmdConpareFile_Click();
void cmdParaPrint_Click();
void cmdParaFilePrint_Click();
/// The factory parameters of actuators that the user chooses.
void cmdIniPrm_Click();
/// Opens the stroke calculator.
void cmdCalculate_Click();

} // namespace qdw8
