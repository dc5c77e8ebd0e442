#include "platform/open_file.h"

#include "platform/fault.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace qdw8 {

OpenFile::OpenFile(const std::string& path, int flags, mode_t mode)
    : name(path), file(::open(path.c_str(), flags | O_CLOEXEC, mode)) {}

OpenFile::~OpenFile() {
    if (isOpen()) {
        ::close(file);
    }
}

void OpenFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t done = ::write(file, bytes.data(), bytes.size());
        if (done < 0 && errno != EINTR) {
            fail();
        }
        bytes.remove_prefix(static_cast<std::size_t>(done < 0 ? 0 : done));
    }
}

void OpenFile::rewind() {
    if (::lseek(file, 0, SEEK_SET) != 0) {
        fail();
    }
}

void OpenFile::writeRestOf(OpenFile& source) {
    char chunk[1U << 16U];
    for (;;) {
        const ssize_t got = ::read(source.file, chunk, sizeof chunk);
        if (got == 0) {
            return;
        }
        if (got > 0) {
            write(std::string_view(chunk, static_cast<std::size_t>(got)));
        } else if (errno != EINTR) {
            source.fail();
        }
    }
}

void OpenFile::cut() {
    const off_t end = ::lseek(file, 0, SEEK_CUR);
    if (end < 0 || ::ftruncate(file, end) != 0) {
        fail();
    }
}

void OpenFile::toDisk() {
    if (::fsync(file) != 0) {
        fail();
    }
}

void OpenFile::fail() const {
    throw Fault(name + ": " + std::strerror(errno));
}

} // namespace qdw8
