#pragma once

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

/// The printer dialog's outcome.
struct PrinterQuestion {
    int flags = 0; ///< 64: page set-up only
    int copies = 1;
};

struct CommonDialog {
    /// Nothing when the user cancelled (the dialog's error 32755).
    std::function<std::optional<FileAnswer>(const FileQuestion&)> ShowFile;
    /// Number of copies, or nothing when the user cancelled. The printer chosen is the one that
    /// the next printed page goes to.
    std::function<std::optional<int>(const PrinterQuestion&)> ShowPrinter;
};

} // namespace qdw8
