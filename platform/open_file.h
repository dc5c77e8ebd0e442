#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

namespace qdw8 {

/// A file on the disk that is open; closed with the object.
class OpenFile {
public:
    /// Opens it with the flags of the system's own `open`. `isOpen` tells whether that went well,
    /// errno why not.
    OpenFile(const std::string& path, int flags, mode_t mode = 0);
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    bool isOpen() const { return file >= 0; }
    int handle() const { return file; }

    // The rest throws `Fault`, with the name and the system's reason.

    /// Writes the bytes where the file stands.
    void write(std::string_view bytes);
    /// Goes back to the beginning.
    void rewind();
    /// Writes what is left of another file.
    void writeRestOf(OpenFile& source);
    /// Cuts the file where it stands.
    void cut();
    /// Waits until the content is on the disk.
    void toDisk();
    [[noreturn]] void fail() const;

private:
    std::string name;
    int file;
};

} // namespace qdw8
