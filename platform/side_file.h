#pragma once

#include "platform/open_file.h"

#include <optional>
#include <string>
#include <sys/types.h>

namespace qdw8 {

/// Where files that help to save another one stand, and by what they are known to belong to it.
struct SidePlace {
    std::string folder;
    std::string prefix; ///< what their names begin with; cut, so that no name gets too long
    std::string key;    ///< what they belong to, unmistakably
};

/// The folder of the file itself.
SidePlace Beside(const std::string& file);

/// Another folder, for files of whichever folder.
SidePlace Elsewhere(const std::string& folder, const std::string& file);

/// A file that helps to save another one, open and locked while the object lives. It has no name
/// until `finish`, so that not even a killed process leaves half of it behind; on a file system
/// that knows no files without a name it has one from the start. It never takes a name that is
/// taken, and goes with the object unless it was moved or kept.
class SideFile {
public:
    /// `ending` is ".new" or ".old"; `mode` are the rights before the process' own mask. Throws
    /// `Fault` if the folder takes no file.
    SideFile(SidePlace where, const char* nameEnding, mode_t mode);
    SideFile(const SideFile&) = delete;
    SideFile& operator=(const SideFile&) = delete;
    ~SideFile();

    OpenFile& content() { return *file; }
    const std::string& name() const { return path; }

    /// Brings the content to the disk and gives the file its name. Throws `Fault`.
    void finish();
    /// Puts the finished file in the place of `destination`. False if the system refuses that.
    bool moveTo(const std::string& destination);
    /// Leaves the finished file where it is.
    void keep() { named = false; }

private:
    SidePlace place;
    const char* ending;
    std::string path;
    std::optional<OpenFile> file;
    bool named = false;
};

/// Removes the finished and unfinished side files of this place that no process has open any more.
/// Only what bears the check digits of such a file is one; everything else stays.
void RemoveLeftovers(const SidePlace& place, const char* ending);

/// Brings the names in a folder to the disk. A folder that can't be synchronised (some network
/// shares) is no reason to call a good save failed.
void SyncFolder(const std::string& folder);

} // namespace qdw8
