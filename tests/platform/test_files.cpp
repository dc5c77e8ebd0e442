#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/port_info.h"
#include "platform/side_file.h"
#include "platform/whole_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <grp.h>
#include <set>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

enum class Mishap { None, FailsOnce, FailsForGood, Killed };

/// The test program's own way to the disk: the calls by which a save changes it come by here.
struct Disk {
    Mishap mishap = Mishap::None;
    int at = 0;            ///< the call that it happens at, the first one is 1
    int calls = 0;         ///< calls so far
    bool namesAll = false; ///< the file system has no files without a name
    gid_t group = 0;       ///< the closed device's
    int groupsAsked = 0;
    std::string closed = "-"; ///< a folder that takes no new file, a device that isn't the user's
} disk;

template<typename... Arguments> int Call(long call, Arguments... arguments) {
    ++disk.calls;
    if (disk.mishap == Mishap::Killed && disk.calls == disk.at) {
        ::raise(SIGKILL);
    }
    if ((disk.mishap == Mishap::FailsOnce && disk.calls == disk.at) ||
        (disk.mishap == Mishap::FailsForGood && disk.calls >= disk.at)) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(call, arguments...));
}

} // namespace

// These stand in front of the C library's own for the whole test program.
extern "C" {
ssize_t write(int file, const void* bytes, size_t count) {
    return Call(SYS_write, file, bytes, count > 1 ? count / 2 : count); // as a disk may do
}
int stat(const char* path, struct stat* found) noexcept {
    const int result = ::fstatat(AT_FDCWD, path, found, 0);
    found->st_gid = path == disk.closed ? disk.group : found->st_gid;
    return result;
}
int getgrgid_r(gid_t, group* found, char* room, size_t size, group** result) {
    ++disk.groupsAsked;
    found->gr_name = std::strcpy(room, "dialout");
    *result = size > 4096 ? found : nullptr;
    return size > 4096 ? 0 : ERANGE;
}
int fsync(int) {
    return Call(SYS_sched_yield); // the files of a test need not be on the disk
}
int rename(const char* from, const char* to) noexcept {
    return Call(SYS_rename, from, to);
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return Call(SYS_linkat, fromFolder, from, toFolder, to, flags);
}
int access(const char* path, int how) noexcept {
    return path == disk.closed ? -1 : static_cast<int>(::syscall(SYS_access, path, how));
}
int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = va_arg(rest, unsigned);
    va_end(rest);
    const bool nameless = (flags & O_TMPFILE) == O_TMPFILE;
    const bool makes = nameless || (flags & O_CREAT) != 0;
    if ((nameless && disk.namesAll) || (makes && std::string(path).starts_with(disk.closed))) {
        errno = EACCES;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_open, path, flags, mode));
}
}

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test, gone afterwards.
class Files : public ::testing::Test {
protected:
    Files() {
        fs::remove_all(folder);
        fs::create_directories(path("settings"));
        ThePlatform().settingsFolder = path("settings");
    }
    ~Files() override {
        disk = {};
        ThePlatform().settingsFolder.clear();
        fs::remove_all(folder);
    }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    /// All files in the folder and below it, but for their folders' names.
    std::set<std::string> names() const {
        std::set<std::string> result;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (!fs::is_directory(entry.symlink_status())) {
                result.insert(entry.path().filename().string());
            }
        }
        return result;
    }
    bool holds(const std::string& name, const std::string& text) const {
        return fs::exists(folder / name) && ReadWholeFile(path(name)) == text;
    }
    struct stat statusOf(const std::string& name) const {
        struct stat status {};
        EXPECT_EQ(::lstat(path(name).c_str(), &status), 0);
        return status;
    }

    fs::path folder = fs::temp_directory_path() / ("qdw8-files-" + std::to_string(::getpid()));
};

using Names = std::set<std::string>;

/// Runs it in a process of its own, and gives how that ended; 0 is well.
template<typename Run> int RunApart(Run run) {
    const pid_t child = ::fork();
    if (child == 0) {
        run();
        ::_exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

TEST_F(Files, WhatWasWrittenIsReadBackByteForByteUpToTheLimit) {
    for (const std::string& text :
         {std::string(), std::string("a\r\n\0\x1A", 5), std::string(200'000, '\xFF')}) {
        WriteWholeFile(path("data"), text);
        EXPECT_EQ(ReadWholeFile(path("data"), text.size()), text);
    }
    EXPECT_EQ(names(), Names{"data"});
    for (const char* name : {"data", "missing", "settings"}) {
        EXPECT_THROW(ReadWholeFile(path(name), 199'999), Fault) << name;
    }
}

TEST_F(Files, AReplacedFileKeepsOwnerRightsAndAttributes) {
    const std::string data = path("data");
    WriteWholeFile(data, "old");
    EXPECT_TRUE(::chown(data.c_str(), 12345, 23456) == 0 || ::geteuid() != 0);
    fs::permissions(data, fs::perms(0640));
    // An access list: read and write for the owner and one other user, nothing for the rest.
    const char list[] = "\2\0\0\0\1\0\6\0\377\377\377\377\2\0\6\0\7\0\0\0\4\0\4\0\377\377\377\377"
                        "\20\0\6\0\377\377\377\377\40\0\0\0\377\377\377\377";
    ::setxattr(data.c_str(), "system.posix_acl_access", list, sizeof list - 1, 0);
    ::setxattr(data.c_str(), "user.note", "kept", 4, 0);
    const struct stat old = statusOf("data");
    WriteWholeFile(data, "new");
    const struct stat now = statusOf("data");
    EXPECT_NE(now.st_ino, old.st_ino);
    EXPECT_EQ(std::tie(now.st_mode, now.st_uid, now.st_gid),
              std::tie(old.st_mode, old.st_uid, old.st_gid));
    EXPECT_EQ(::getxattr(data.c_str(), "user.note", nullptr, 0), 4);
    EXPECT_EQ(::getxattr(data.c_str(), "system.posix_acl_access", nullptr, 0), 44);
}

TEST_F(Files, AnotherUsersFileIsWrittenInPlaceAndAProtectedOneNotAtAll) {
    WriteWholeFile(path("shared"), "old");
    WriteWholeFile(path("protected"), "old");
    fs::permissions(path("shared"), fs::perms(0666));
    fs::permissions(path("protected"), fs::perms(0444));
    fs::permissions(folder, fs::perms(0777));
    const ino_t number = statusOf("shared").st_ino;
    EXPECT_EQ(0, RunApart([&] {
                  EXPECT_TRUE(::geteuid() != 0 || ::setgid(65534) + ::setuid(65534) == 0);
                  WriteWholeFile(path("shared"), "new");
                  EXPECT_THROW(WriteWholeFile(path("protected"), "new"), Fault);
              }));
    EXPECT_TRUE(holds("shared", "new") && holds("protected", "old"));
    EXPECT_TRUE(::geteuid() != 0 || statusOf("shared").st_ino == number);
    EXPECT_EQ(names(), (Names{"protected", "shared"}));
}

TEST_F(Files, ALinkStaysALinkAndWhatIsNoFileIsRefused) {
    fs::create_directory(folder / "real");
    fs::create_symlink("data", path("real/near"));
    fs::create_symlink("real/near", path("link"));
    fs::create_symlink(path("real/fresh"), path("whole"));
    for (const char* text : {"dangling", "leading somewhere"}) {
        WriteWholeFile(path("link"), text);
        WriteWholeFile(path("whole"), text);
        EXPECT_TRUE(holds("real/data", text) && holds("real/fresh", text));
    }
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0666), 0);
    fs::create_symlink("/dev/full", path("device"));
    fs::create_symlink("loop", path("loop"));
    for (const char* name : {"settings", "pipe", "device", "loop", "missing/data"}) {
        EXPECT_THROW(WriteWholeFile(path(name), "new"), Fault) << name;
    }
    EXPECT_EQ(names(), (Names{"data", "device", "fresh", "link", "loop", "near", "pipe", "whole"}));
    for (const char* name : {"link", "real/near", "whole"}) {
        EXPECT_TRUE(S_ISLNK(statusOf(name).st_mode)) << name;
    }
    EXPECT_TRUE(S_ISFIFO(statusOf("pipe").st_mode));
}

TEST_F(Files, TheLongestNameCanBeSavedAndFilesOfOthersStay) {
    std::string name;
    while (name.size() < 255) {
        name += "位";
    }
    const Names mine = {name, "a.0123456789abcdef-0123456789abcdef.new", "a.new", "a.old", "a"};
    for (int round = 0; round < 2; ++round) {
        for (const std::string& one : mine) {
            WriteWholeFile(path(one), "mine");
        }
        EXPECT_EQ(names(), mine);
    }
    EXPECT_THROW(WriteWholeFile(path(name + "x"), "new"), Fault);
    SideFile busy(Beside(path("a")), ".new", 0600);
    busy.finish();
    WriteWholeFile(path("a"), "new");
    EXPECT_TRUE(fs::exists(busy.name())) << "another process was saving";
}

/// Saves with the mishap at the step told. False: the step was never reached.
bool MishapHappens(const std::string& path, Mishap mishap, int step, std::string& fault) {
    disk.mishap = mishap;
    disk.at = step;
    disk.calls = 0;
    bool happened = true;
    if (mishap == Mishap::Killed) {
        happened = WIFSIGNALED(RunApart([&path] { WriteWholeFile(path, "new content"); }));
    } else {
        try {
            WriteWholeFile(path, "new content");
        } catch (const Fault& told) {
            fault = told.what();
        }
        happened = disk.calls >= step;
    }
    disk.mishap = Mishap::None;
    return happened;
}

/// Every way to save, every call that it makes, every mishap there: nothing is lost, and the next
/// save leaves nothing but the file.
TEST_F(Files, AMishapAtAnyStepLosesNothing) {
    const std::string old = "what stood there before";
    fs::create_directory(folder / "home");
    for (const std::string way : {"fresh", "plain", "named", "linked", "closed"}) {
        disk.namesAll = way == "named";
        for (const Mishap mishap : {Mishap::FailsOnce, Mishap::FailsForGood, Mishap::Killed}) {
            bool more = true;
            for (int step = 1; more; ++step) {
                SCOPED_TRACE(way + std::to_string(static_cast<int>(mishap)) + " at " +
                             std::to_string(step));
                disk.closed = "-";
                fs::remove(folder / "home/data");
                fs::remove(folder / "other");
                if (way != "fresh") {
                    WriteWholeFile(path("home/data"), old);
                }
                if (way == "linked") {
                    fs::create_hard_link(folder / "home/data", folder / "other");
                }
                disk.closed = way == "closed" ? path("home") : "-";
                const Names before = names();
                std::string fault;
                more = MishapHappens(path("home/data"), mishap, step, fault);
                bool copied = false;
                for (const char* place : {"home/", "settings/"}) {
                    for (const std::string& name : names()) {
                        const bool told = fault.find(name) != std::string::npos;
                        copied = copied ||
                                 ((told || mishap == Mishap::Killed) && holds(place + name, old));
                    }
                }
                EXPECT_TRUE(
                    copied || (fault.empty() && holds("home/data", "new content")) ||
                    (way == "fresh" ? !fs::exists(folder / "home/data") : holds("home/data", old)));
                EXPECT_TRUE(mishap == Mishap::Killed || copied || way == "fresh" ||
                            names() == before);
                WriteWholeFile(path("home/data"), "next");
                EXPECT_TRUE(holds("home/data", "next"));
                EXPECT_EQ(names(), way == "linked" ? (Names{"data", "other"}) : Names{"data"});
                EXPECT_TRUE(way != "linked" || holds("other", "next"));
            }
        }
    }
}

TEST_F(Files, APortIsALinkInTheSettingsFolderOrABuiltInOne) {
    EXPECT_EQ(DeviceOfPort(9), "/dev/ttyS8");
    fs::create_directory(folder / "settings/ports");
    fs::create_symlink("/dev/null", path("settings/ports/com1"));
    fs::create_symlink("../gone", path("settings/ports/com2")); // no other port steps in for it
    fs::create_symlink(path("settings"), path("settings/ports/com3"));
    for (const char* name : {"1", "2"}) {
        EXPECT_EQ(DeviceOfPort(std::stoi(name)), path("settings/ports/com") + name);
    }
    using enum PortState;
    for (const auto& [portNo, state, device] :
         {std::tuple{1, Ready, std::string("/dev/null")},
          {2, LinkBroken, path("settings/gone")},
          {3, NoSerialDevice, fs::canonical(path("settings")).string()},
          {0, NoDevice, "/dev/ttyS-1"}}) {
        EXPECT_EQ(LookAtPort(portNo).state, state) << portNo;
        EXPECT_EQ(LookAtPort(portNo).device, device);
    }
    disk.closed = "/dev/null";
    EXPECT_EQ(LookAtPort(1).state, NotAllowed);
    EXPECT_EQ(LookAtPort(1).group, "") << "nobody joins the group of the administrator";
    for (int look = 1; look <= 2; ++look) {
        disk.group = 20;
        EXPECT_EQ(LookAtPort(1).group, "dialout") << "whose members may";
        EXPECT_EQ(disk.groupsAsked, 2) << "the first room was too small";
    }
    disk.closed = "-";
}

} // namespace
} // namespace qdw8
