#pragma once

#include "platform/common_dialog.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Asking the user for a file.
namespace qdw8 {

/// A kind of file: what the dialog lists and what a new name ends in.
struct FileKind {
    std::int16_t filterId;  ///< text of the filter, "Position Data(*.qdd)|*.qdd|..."
    const char* defaultExt; ///< without the point
};

/// The file that the user chose; nothing when the dialog was cancelled or gave no path, or the
/// program is to end, when none comes up. `folder` is where it starts, empty for the platform's
/// choice. What the dialog throws goes on to the caller.
std::optional<FileAnswer> AskFileToOpen(const FileKind& kind, std::int16_t titleId,
                                        const std::string& folder = {});
/// The same for a file to be written; a file that is there already is asked about by the dialog.
std::optional<FileAnswer> AskFileToSave(const FileKind& kind, std::int16_t titleId,
                                        const std::string& proposedName,
                                        const std::string& folder = {});

/// The user has dropped files with these paths onto a window; an empty path stands for what is no
/// file of this machine. `open`, a command that asks for a file of the kind, runs, and its first
/// question for a file to open is answered with the one that was dropped and doesn't come up. For
/// more than one, no file of this machine, or one without the kind's extension, a box says so, and
/// nothing runs.
void OpenDropped(const FileKind& kind, const std::vector<std::string>& paths,
                 const std::function<void()>& open);

} // namespace qdw8
