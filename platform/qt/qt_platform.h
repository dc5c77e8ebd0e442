#pragma once

#include <string>

namespace qdw8 {

/// Fills the platform in force with the real one. To be called once the QApplication exists; the
/// services must not be used any more when it is gone. A second call starts every service afresh,
/// with the port closed and every timer stopped; `OnComm` is left as it was set.
void InstallQtPlatform();

// The single services, for a window test that scripts the rest.

/// Timers and the event pump.
///
/// A timer never comes early. Its next interval begins before its routine is called, so a routine
/// that waits on `PumpEvents` can be called again from within; routines keep themselves apart by
/// their own flags. What a routine throws is reported as a Qt warning and goes no further.
/// A timer must be disabled before the `Timer` itself goes away.
void InstallQtTimers();

/// The serial line on the system's serial port. Characters come by whole lines, up to a line feed:
/// what a line lacks yet is neither counted nor read, and a line of more than 4096 characters
/// comes cut. `OnComm` is called from the event loop, never from within another member; lines that
/// come together give one call. Handshaking is 0
/// none, 1 XON/XOFF or 2 RTS/CTS. `CommEvent` is 2 after characters came and 1007 after an error
/// closed the port.
void InstallQtSerial();

/// Message boxes. A box is named "MessageBox", its buttons "Ok", "Cancel", "Yes" and "No".
void InstallQtMessageBox();

/// File and printer dialogs, named "CommonDialog1". The folder of the file chosen becomes the
/// current folder of the process, in which the next dialog starts and a bare file name lies.
void InstallQtCommonDialog();

/// The printer. A document is gathered page by page and goes to the printer as a whole in
/// `EndDoc`; dropping it prints nothing at all.
void InstallQtPrinter();

/// The settings store `settings.ini`, and the folder that it lies in: `QD-W8` in the user's
/// configuration folder. The folder is made if it is missing. What stands under the name of the
/// store and can't be one (a file of more than 64 kB, a pipe, a device) is set aside under
/// "settings.ini.aside", or a number behind that, and the store begins afresh. Also tells the state
/// folder: `QD-W8` in $XDG_STATE_HOME, else in ~/.local/state; it is made by who writes there.
void InstallQtSettings();

/// Clipboard, beep, screen size, program folder and the end of the process.
void InstallQtDesktop();

/// The word of the system that the program is to end (SIGTERM, SIGINT, SIGHUP): it is handed over
/// out of the event loop. A process that hasn't ended ten seconds later, because no event loop runs
/// any more, is ended by the system.
void InstallQtToldToEnd();

/// The facts for a report.
void InstallQtMachine();

/// Switching of the input method.
void InstallQtInputMethod();

/// Words on the buttons and labels of boxes and dialogs, in the language of the run; an "&" marks
/// the mnemonic of a button.
struct StandardTexts {
    std::string ok = "OK";
    std::string cancel = "Cancel";
    std::string yes = "&Yes";
    std::string no = "&No";
    std::string open = "&Open";
    std::string save = "&Save";
    std::string folder = "Look in:";
    std::string fileName = "File name:";
    std::string fileType = "Files of type:";
    std::string preview = "Pre&view";
};

/// Takes effect with the next box or dialog.
void SetStandardTexts(const StandardTexts& texts);

/// Prints to a PDF file from the next document on; an empty name goes back to the system's
/// default printer.
void SetPrinterOutputFile(const std::string& path);

} // namespace qdw8
