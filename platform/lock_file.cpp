#include "platform/lock_file.h"

#include "platform/fault.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qdw8 {
namespace {

constexpr int kTries = 10;

/// True if the open file still stands under its name: who had it before may have taken it away
/// between our open and our lock.
bool StandsUnder(const std::string& name, const OpenFile& file) {
    struct stat named {};
    struct stat open {};
    return ::stat(name.c_str(), &named) == 0 && ::fstat(file.handle(), &open) == 0 &&
           named.st_ino == open.st_ino && named.st_dev == open.st_dev;
}

} // namespace

LockFile::LockFile(const std::string& path) : name(path) {
    for (int tries = 0; tries < kTries; ++tries) {
        auto opened = std::make_unique<OpenFile>(
            path, O_CREAT | O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK, 0600);
        if (!opened->isOpen()) {
            opened->fail();
        }
        if (::flock(opened->handle(), LOCK_EX | LOCK_NB) != 0) {
            if (errno != EWOULDBLOCK) {
                opened->fail();
            }
            return;
        }
        if (StandsUnder(path, *opened)) {
            file = std::move(opened);
            return;
        }
    }
}

LockFile::~LockFile() {
    if (held()) {
        ::unlink(name.c_str());
    }
}

int LockFile::marks() const {
    struct stat status {};
    return ::fstat(file->handle(), &status) == 0 ? static_cast<int>(status.st_size) : 0;
}

void LockFile::addMark() {
    try {
        file->write("x");
        file->toDisk();
    } catch (const Fault&) {
        return; // there is no room for it
    }
}

void LockFile::setMarks(int count) {
    if (::ftruncate(file->handle(), count) == 0) {
        ::fsync(file->handle());
    }
}

} // namespace qdw8
