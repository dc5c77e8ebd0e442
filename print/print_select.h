#pragma once

#include <string>

/// The dialog `frmPrintSelect`, which asks what to print, as data.
namespace qdw8 {

/// What it holds, under the names of its controls.
struct PrintSelectForm {
    bool chkPrintPosi = false;
    int optPrintPosi = 0; ///< 0 the data on screen, 1 a file
    bool chkPrintPara = false;
    int optPrintPara = 0;
    std::string txtPrintStartPosi;
    std::string txtPrintEndPosi;
    std::string lblPrintPosiName; ///< file name, or what stands there until one is picked
    std::string lblPrintParaName;
    std::string posiPath; ///< whole paths; empty until a file is picked
    std::string paraPath;
    bool accepted = false; ///< left by `cmdPrintSet`
};
extern PrintSelectForm PrintSelect;

/// A fresh dialog: the positions on screen, the grid's rows; without any in the grid, a file.
void LoadPrintSelect();

/// `cmdPrintSet` may be used: something is chosen, and each file that is chosen has a name.
bool PrintSetEnabled();

/// A range box is left with a text. The text that stays there: none, with a beep, for one that is
/// no position number, or an end below the start.
std::string LeavePrintRange(bool end, const std::string& text);

/// Asks for the file; nothing changes when that is cancelled.
void cmdSelectPosiFile_Click();
void cmdSelectParaFile_Click();

/// True: the dialog may close, and what it holds is to be printed. False: a box has told what is
/// wrong.
bool cmdPrintSet_Click();

/// The range of the positions on screen; only behind a good `cmdPrintSet_Click`.
struct PrintRange {
    int first = 0;
    int last = 0;
};
PrintRange ChosenPrintRange();

} // namespace qdw8
