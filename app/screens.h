#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// What the rules ask of the windows. One member per need, named after the window; `program/` fills
/// them with the real windows and a test with a script. No rule names a window class.
///
/// The functions that only tell ("look at the data again") may be empty; the modal ones return the
/// user's answer and must be there when a rule reaches them.
namespace qdw8 {

/// What is printed in the place of a file's name for what a window shows.
inline constexpr const char* kShownName = "INDICATED DATA";

/// The choice dialog `frmSelection`.
struct SelectionQuestion {
    std::string title;
    std::string text;
    std::vector<std::string> choices; ///< two or three; the first is preselected
    /// No Cancel button; the title bar asks for the end of the program (`AskToEndProgram`), and the
    /// window goes as cancelled only when that is confirmed.
    bool mustAnswer = false;
    std::vector<std::string> details = {}; ///< lines between text and choices
};
inline constexpr std::int16_t kSelectionCancelled = -1;

struct ScreenFunctions {
    /// The panel, the command states, the transfer dialog, the wait dialog, the offer to give up a
    /// wait have changed.
    std::function<void()> frmMainPanel;
    std::function<void()> frmMainCommands;
    std::function<void()> frmTrance;
    std::function<void()> frmProcessing;
    std::function<void()> frmGiveUp;
    /// The grid's cells, colours, heads or size have changed.
    std::function<void()> flgdData;
    /// Gives the grid the focus.
    std::function<void()> flgdDataFocus;
    /// Hands the grid's selection back and commits a cell that is being edited. False: its text was
    /// rejected, and the edit is still open.
    std::function<bool()> flgdDataFinishInput;

    /// The language of the run is settled: font, and what the toolkit itself says.
    std::function<void()> languageSettled;
    /// Loads and shows `frmMain`, small on a screen of at most 800 pixels' width.
    std::function<void(bool small)> frmMainShow;
    /// Brings the main window to the front, for a question about its data.
    std::function<void()> frmMainFront;
    /// Brings the window back that the user worked in before `frmMainFront`.
    std::function<void()> frmMainBack;
    /// Asks the main window to close, as its title bar does.
    std::function<void()> frmMainClose;
    /// Shows and takes away the splash.
    std::function<void()> frmSplashShow;
    std::function<void()> frmSplashUnload;

    /// Modal. 0, 1 or 2 by the choice, -1 cancelled.
    std::function<std::int16_t(const SelectionQuestion&)> frmSelection;
    /// Modal range dialogs. They set `PosiFirst`, `PosiLast` or `RangeCancelFlag`.
    std::function<void()> frmSelectPosiNo2;
    std::function<void()> frmSelectPosiNo3;
    /// The same for a verify with a file; without anything in common it only says so.
    std::function<void(bool overlap)> frmSelectPosiNo4;
    /// Modal. 1 verify with a file, 2 with the controller, 0 cancelled.
    std::function<std::int16_t()> frmDataShogo;
    /// Modal result window of a check or a verify.
    std::function<void()> frmSyogoKekka;
    /// Modal device window. It stores the choice in `DevSettei`, or sets `DeviceCancelled`.
    std::function<void()> frmDevice2;
    /// Modal device window whose choice can be written into the controller at once.
    std::function<void()> frmDevice3;
    /// Opens the parameter window, or brings the one that is open to the front; it comes back at
    /// once. Modal: nothing else can be used until it is closed.
    std::function<void(bool modal)> frmParameta2Show;
    /// Fields, enabling or marks of the parameter window have changed.
    std::function<void()> frmParameta2;
    /// Modal stroke calculator of the parameter window.
    std::function<void()> frmDeviceShow;
    /// Opens the group window, the macro window, or brings it to the front.
    std::function<void()> frmGrpShow;
    std::function<void()> frmSqMcrShow;
    /// What the window shows has changed: numbers, marks, page or macro, its commands.
    std::function<void()> frmGrp;
    std::function<void()> frmSqMcr;
    /// Opens the I/O window, or brings it to the front.
    std::function<void()> frmIOCheckShow;
    /// What the I/O window shows has changed: lamps, buttons, its own state; or it is to go.
    std::function<void()> frmIOCheck;
    /// Opens the move test, or brings it to the front.
    std::function<void()> frmMoveShow;
    /// What the move test shows has changed.
    std::function<void()> frmMove;
    /// Gives the start button of the group run the focus.
    std::function<void()> cmdGrpMoveFocus;
    /// Opens the teaching window, or brings it to the front.
    std::function<void()> frmJOGShow;
    /// What the teaching window shows has changed, but for its chart; or it is to go.
    std::function<void()> frmJOG;

    /// Modal options, and modal information about the program.
    std::function<void()> frmOptions2Show;
    std::function<void()> frmAboutShow;
    /// Opens the manual at its first page, or says that there is none.
    std::function<void()> frmHelpShow;
    /// Modal: what to print. It leaves the choice in `PrintSelect`.
    std::function<void()> frmPrintSelect;
    /// Modal: a look at the pages of the document before they are printed. 1 to be printed, 2 the
    /// printer dialog is to come again, 0 left.
    std::function<std::int16_t()> frmPrintPreview;

    /// Print what the compare table of the groups, of the macros, `ParaRowTable` holds, under a
    /// file name. What prints stands above the rooms of these tables.
    std::function<void(const std::string& fileName)> PrintGrpData;
    std::function<void(const std::string& fileName)> PrintSmData;
    std::function<void(const std::string& fileName)> PrintParaData;
};

/// The screens in force.
ScreenFunctions& Screens();

} // namespace qdw8
