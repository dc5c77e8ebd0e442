#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace qdw8 {

/// Flags of a file dialog, combined with `|`.
inline constexpr int kOverwritePrompt = 2;  ///< ask before an existing file is chosen for saving
inline constexpr int kFileMustExist = 4096; ///< a file to open must exist

/// What a file dialog asks.
struct FileQuestion {
    enum class Kind { Open, Save };
    Kind kind = Kind::Open;
    std::string title;
    std::string filter; ///< "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*"
    /// Without the point. A name to save under gets it unless it ends so, in capitals or not, and
    /// that name is the one that the user is asked about; a name that is nothing but the extension
    /// is none. A name to open gets it if there is no such file.
    std::string defaultExt;
    std::string fileName; ///< proposed name; empty for none
    std::string folder;   ///< folder to start in; empty: the platform's choice
    int flags = 0;
};

/// What the user chose.
struct FileAnswer {
    std::string path;  ///< whole path, UTF-8
    std::string title; ///< file name with extension, without the folder
};

inline constexpr int kPageSetup = 64; ///< flag of the printer dialog: page set-up only

/// What the printer dialog asks.
struct PrinterQuestion {
    int flags = 0;
    bool offersPreview = false; ///< it has a button for a look at the pages
};
enum class PrinterAnswer : std::uint8_t {
    Cancel, ///< the dialog's error 32755
    Print,
    Preview ///< what goes to the printer is to be looked at first
};

struct CommonDialog {
    /// Nothing when the user cancelled (the dialog's error 32755).
    std::function<std::optional<FileAnswer>(const FileQuestion&)> ShowFile;
    /// The printer, the paper and the number of copies chosen are those of the next document.
    std::function<PrinterAnswer(const PrinterQuestion&)> ShowPrinter;
};

} // namespace qdw8
