#include "platform/whole_file.h"

#include "platform/fault.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void FailWith(const std::string& path) {
    throw Fault(path + ": " + std::strerror(errno));
}

/// The file that a chain of links ends in; the name itself if it is no link.
std::string ResolveLinks(const std::string& path) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) {
        return path;
    }
    const fs::path target = fs::weakly_canonical(path, error);
    return error ? path : target.string();
}

/// A file being written in the folder of its destination. It has no name until it is whole, so that
/// not even a process that is killed leaves half of it behind; on a file system that knows no files
/// without a name it has one from the start, and is removed unless it was moved into place.
class NewFile {
public:
    explicit NewFile(const std::string& destination)
        : name(destination + ".new" + std::to_string(::getpid())) {
        const fs::path parent = fs::path(destination).parent_path();
        const std::string folder = parent.empty() ? "." : parent.string();
        handle = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
        if (handle < 0) {
            handle = ::open(name.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0666);
            named = handle >= 0;
        }
        if (handle < 0) {
            FailWith(destination);
        }
        // A data file keeps the rights of the one it replaces.
        struct stat old {};
        if (::stat(destination.c_str(), &old) == 0) {
            ::fchmod(handle, old.st_mode & 0777U);
        }
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (handle >= 0) {
            ::close(handle);
        }
        if (named) {
            ::unlink(name.c_str());
        }
    }

    void write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t done = ::write(handle, bytes.data(), bytes.size());
            if (done < 0 && errno == EINTR) {
                continue;
            }
            if (done < 0) {
                FailWith(name);
            }
            bytes.remove_prefix(static_cast<std::size_t>(done));
        }
        if (::fsync(handle) != 0) {
            FailWith(name);
        }
        giveName();
        const int closed = ::close(handle);
        handle = -1;
        if (closed != 0) {
            FailWith(name);
        }
    }

    void moveTo(const std::string& destination) {
        if (::rename(name.c_str(), destination.c_str()) != 0) {
            FailWith(destination);
        }
        named = false;
    }

private:
    void giveName() {
        if (named) {
            return;
        }
        const std::string self = "/proc/self/fd/" + std::to_string(handle);
        ::unlink(name.c_str()); // what a process of the same number left behind
        if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
            FailWith(name);
        }
        named = true;
    }

    std::string name;
    int handle = -1;
    bool named = false;
};

/// Makes the new name itself reach the disk. A folder that can't be synchronised (some network
/// shares) is no reason to call a good save failed.
void SyncFolder(const std::string& path) {
    const fs::path folder = fs::path(path).parent_path();
    const int handle =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle);
        ::close(handle);
    }
}

} // namespace

std::string ReadWholeFile(const std::string& path, std::size_t limit) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        throw Fault(path + ": is no file"); // a folder, or a pipe that would never end
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw Fault(path + ": can't be opened");
    }
    std::string bytes;
    char chunk[1U << 16U];
    while (file.read(chunk, sizeof chunk) || file.gcount() > 0) {
        bytes.append(chunk, static_cast<std::size_t>(file.gcount()));
        if (bytes.size() > limit) {
            throw Fault(path + ": too large");
        }
    }
    if (file.bad()) {
        throw Fault(path + ": can't be read");
    }
    return bytes;
}

void WriteWholeFile(const std::string& path, std::string_view bytes) {
    const std::string destination = ResolveLinks(path);
    // An existing file that the user may not write is refused, as an ordinary save would be;
    // moving a new file over it would get around the protection.
    if (::access(destination.c_str(), F_OK) == 0 && ::access(destination.c_str(), W_OK) != 0) {
        FailWith(destination);
    }
    NewFile file(destination);
    file.write(bytes);
    file.moveTo(destination);
    SyncFolder(destination);
}

} // namespace qdw8
