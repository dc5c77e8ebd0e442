#pragma once

#include "platform/common_dialog.h"
#include "platform/message_box.h"
#include "platform/printer.h"
#include "platform/serial_control.h"

#include <functional>
#include <string>
#include <vector>

namespace qdw8 {

struct Timer;

/// The per-user store of text values by section and key.
struct SettingsStore {
    /// The stored text, or `fallback` if the key is missing. Never fails.
    std::function<std::string(const std::string& section, const std::string& key,
                              const std::string& fallback)>
        GetSetting;
    /// Stores the text at once. Never fails; a store that can't be written keeps the value for
    /// the run.
    std::function<void(const std::string& section, const std::string& key,
                       const std::string& value)>
        SaveSetting;
    /// All that was saved is on the disk.
    std::function<bool()> IsKept;
};

/// The system clipboard, text form, UTF-8.
struct Clipboard {
    /// Empty if it holds no text. Of more than a million characters only the first whole rows.
    std::function<std::string()> GetText;
    std::function<void(const std::string&)> SetText;
    std::function<void()> Clear;
};

/// Size of the primary screen, in pixels.
struct ScreenSize {
    int width = 0;
    int height = 0;
};

/// What a report of a fault has to tell of the machine, for reading.
struct DesktopFacts {
    std::string system;
    std::string screen;
    std::vector<std::string> libraries; ///< each with its version
};

/// Date and time on the user's clock.
struct LocalTime {
    int year = 0;
    int month = 0; ///< 1 to 12
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// What the program needs of a desktop. One platform is in force at a time: the real one on Qt,
/// or a scripted one with a clock of its own in tests.
struct Platform {
    SerialControl MSComm1;
    MessageBox ShowMessageBox;
    CommonDialog CommonDialog1;
    Printer ThePrinter;
    SettingsStore Settings;
    Clipboard TheClipboard;

    /// Serves what is pending of timers, arriving characters and window events. If nothing is
    /// due it sleeps until something is; it never spins.
    std::function<void()> PumpEvents;
    /// Called after the fields of a timer changed (see timer.h).
    std::function<void(Timer&)> TimerChanged;
    /// Opens or closes the input method of the window that has the focus; nothing happens if
    /// there is no input method.
    std::function<void(bool open)> ImeSetOpenStatus;
    std::function<void()> Beep;
    std::function<ScreenSize()> GetScreenSize;
    std::function<DesktopFacts()> GetDesktopFacts;
    std::function<LocalTime()> GetLocalTime;
    /// Ends the process at once; no other window gets a chance to ask. On the scripted platform
    /// it notes the end and returns.
    std::function<void()> EndProgram;

    /// Called, out of the event pump, each time the system tells the program to end. Set by the
    /// program; while it is empty the process ends at once.
    std::function<void()> OnToldToEnd;
    /// Takes away the box, dialog or menu in front, as if it had been cancelled; it is gone when
    /// the event pump has returned to whoever showed it. False: there was none.
    std::function<bool()> CancelModal;

    /// Folder in which the list files and the manual lie: that of the program, or the one of its
    /// data where it is installed; no separator at the end.
    std::string programFolder;
    /// Where the system tells of its serial devices.
    std::string serialClassFolder = "/sys/class/tty";
    /// Folder of the user's settings; no separator at the end.
    std::string settingsFolder;
    /// Folder of what a run leaves for the next one without being asked, no separator at the end.
    /// It may not be there yet.
    std::string stateFolder;
};

/// The platform in force. Its functions are empty until a platform has been installed.
Platform& ThePlatform();

/// Shorthands for what nearly every unit uses.
inline void PumpEvents() {
    ThePlatform().PumpEvents();
}
inline SerialControl& MSComm1() {
    return ThePlatform().MSComm1;
}

/// Path of a file that lies beside the program.
std::string BesideProgram(const std::string& fileName);

/// Where the link of a port number lies if there is one: `ports/comN` in the user's settings
/// folder.
std::string LinkOfPort(int portNo);
/// The device that stands behind a port number: `ports/comN` in the user's settings folder if
/// there is such a link, else the built-in port /dev/ttyS(N-1).
std::string DeviceOfPort(int portNo);

} // namespace qdw8
