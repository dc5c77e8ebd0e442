#include "failing_disk.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace qdw8::test {

FailingDisk& TheDisk() {
    static FailingDisk disk;
    return disk;
}

namespace {

template<typename... Arguments> long Counted(long call, Arguments... arguments) {
    FailingDisk& disk = TheDisk();
    ++disk.calls;
    if (disk.mishap == Mishap::Killed && disk.calls == disk.at) {
        ::raise(SIGKILL);
    }
    if ((disk.mishap == Mishap::FailsOnce && disk.calls == disk.at) ||
        (disk.mishap == Mishap::FailsForGood && disk.calls >= disk.at)) {
        errno = EIO;
        return -1;
    }
    return ::syscall(call, arguments...);
}

} // namespace
} // namespace qdw8::test

using qdw8::test::Counted;
using qdw8::test::TheDisk;

// These stand in front of the C library's own for the whole test program.
extern "C" {
ssize_t write(int file, const void* bytes, size_t count) {
    // Half of it at first, as a disk may.
    return Counted(SYS_write, file, bytes, count > 1 ? count / 2 : count);
}
int fsync(int) {
    return static_cast<int>(
        Counted(SYS_sched_yield)); // the files of a test need not be on the disk
}
int ftruncate(int file, off_t length) noexcept {
    return static_cast<int>(Counted(SYS_ftruncate, file, length));
}
int fallocate(int file, int mode, off_t from, off_t length) {
    return static_cast<int>(Counted(SYS_fallocate, file, mode, from, length));
}
int rename(const char* from, const char* to) noexcept {
    return static_cast<int>(Counted(SYS_rename, from, to));
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return static_cast<int>(Counted(SYS_linkat, fromFolder, from, toFolder, to, flags));
}
int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = va_arg(rest, unsigned);
    va_end(rest);
    const bool nameless = (flags & O_TMPFILE) == O_TMPFILE;
    if (nameless && !TheDisk().knowsNameless) {
        errno = EOPNOTSUPP;
        return -1;
    }
    if ((nameless || (flags & O_CREAT) != 0) &&
        std::string(path).starts_with(TheDisk().closedFolder)) {
        errno = EACCES;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_open, path, flags, mode));
}
}
