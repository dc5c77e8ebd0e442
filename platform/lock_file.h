#pragma once

#include "platform/open_file.h"

#include <memory>
#include <string>

namespace qdw8 {

/// A file by which one process at a time holds what is kept beside it. It is free again when the
/// object or the process goes, however that ends; the object takes the file away, too.
///
/// The file can carry marks, which a killed process leaves behind: so the next holder knows that
/// somebody failed with what it guards.
class LockFile {
public:
    /// Makes the file if it is missing. `held` tells whether it was free. Throws `Fault` if the
    /// folder takes no file, or its file system knows no locks.
    explicit LockFile(const std::string& path);
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;
    ~LockFile();

    bool held() const { return file != nullptr; }

    // Only while it is held.

    int marks() const;
    /// One mark more; nothing happens on a full disk.
    void addMark();
    /// As many marks as there were before, or none.
    void setMarks(int count);

private:
    std::string name;
    std::unique_ptr<OpenFile> file;
};

} // namespace qdw8
