#include "failing_disk.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/side_file.h"
#include "platform/whole_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;
using test::FailingDisk;
using test::Mishap;
using test::TheDisk;

/// A folder of its own for each test, gone afterwards.
class Files : public ::testing::Test {
protected:
    Files() {
        std::string name = (fs::temp_directory_path() / "qdw8-files-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        folder = name;
        ThePlatform().settingsFolder = path("settings");
        fs::create_directory(path("settings"));
    }
    ~Files() override {
        TheDisk() = FailingDisk{};
        ThePlatform().settingsFolder.clear();
        std::error_code error;
        fs::remove_all(folder, error);
    }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    /// Names of all files in the folder and below it.
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (!entry.is_directory()) {
                result.push_back(entry.path().lexically_relative(folder).string());
            }
        }
        std::sort(result.begin(), result.end());
        return result;
    }

    fs::path folder;
};

using Names = std::vector<std::string>;

TEST_F(Files, WhatWasWrittenIsReadBackByteForByte) {
    std::string bytes(200000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i * 7);
    }
    for (const std::string& text : {std::string(), std::string("a\r\nb\x1A"), bytes}) {
        WriteWholeFile(path("data"), text);
        EXPECT_EQ(ReadWholeFile(path("data")), text);
    }
    EXPECT_EQ(names(), Names{"data"});
}

TEST_F(Files, ReadingFaults) {
    WriteWholeFile(path("ten"), "0123456789");
    EXPECT_EQ(ReadWholeFile(path("ten"), 10), "0123456789");
    EXPECT_THROW(ReadWholeFile(path("ten"), 9), Fault);
    EXPECT_THROW(ReadWholeFile(path("missing")), Fault);
    EXPECT_THROW(ReadWholeFile(folder.string()), Fault);
}

/// Runs it in a process of its own; true if that came to its end.
bool RunApart(const std::function<void()>& run) {
    const pid_t child = ::fork();
    if (child == 0) {
        run();
        ::_exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

struct stat StatusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0);
    return status;
}

TEST_F(Files, AReplacedFileKeepsOwnerRightsAndAttributes) {
    WriteWholeFile(path("data"), "old");
    EXPECT_TRUE(::chown(path("data").c_str(), 12345, 23456) == 0 || ::geteuid() != 0);
    fs::permissions(path("data"), fs::perms(0640));
    // An access list: read and write for the owner and one other user, nothing for the rest.
    const char list[] = "\2\0\0\0\1\0\6\0\377\377\377\377\2\0\6\0\7\0\0\0\4\0\4\0\377\377\377"
                        "\377\20\0\6\0\377\377\377\377\40\0\0\0\377\377\377\377";
    ::setxattr(path("data").c_str(), "system.posix_acl_access", list, sizeof list - 1, 0);
    ::setxattr(path("data").c_str(), "user.note", "kept", 4, 0);
    const struct stat old = StatusOf(path("data"));

    WriteWholeFile(path("data"), "new");

    const struct stat now = StatusOf(path("data"));
    EXPECT_EQ(ReadWholeFile(path("data")), "new");
    EXPECT_NE(now.st_ino, old.st_ino);
    EXPECT_EQ(std::tie(now.st_mode, now.st_uid, now.st_gid),
              std::tie(old.st_mode, old.st_uid, old.st_gid));
    EXPECT_EQ(::getxattr(path("data").c_str(), "user.note", nullptr, 0), 4);
    EXPECT_EQ(::getxattr(path("data").c_str(), "system.posix_acl_access", nullptr, 0), 44);
}

TEST_F(Files, AnotherUsersFileIsWrittenInPlaceAndAProtectedOneNotAtAll) {
    WriteWholeFile(path("shared"), "old");
    WriteWholeFile(path("protected"), "old");
    fs::permissions(path("shared"), fs::perms(0666));
    fs::permissions(path("protected"), fs::perms(0444));
    fs::permissions(folder, fs::perms(0777));
    const ino_t number = StatusOf(path("shared")).st_ino;
    EXPECT_TRUE(RunApart([&] {
        if (::geteuid() == 0) {
            EXPECT_EQ(::setgid(65534) + ::setuid(65534), 0);
        }
        WriteWholeFile(path("shared"), "new");
        EXPECT_THROW(WriteWholeFile(path("protected"), "new"), Fault);
    }));
    EXPECT_EQ(ReadWholeFile(path("shared")), "new");
    EXPECT_EQ(ReadWholeFile(path("protected")), "old");
    EXPECT_EQ(StatusOf(path("shared")).st_ino, number);
    EXPECT_EQ(names(), (Names{"protected", "shared"}));
}

TEST_F(Files, ALinkStaysALinkWhereverItLeads) {
    fs::create_directory(folder / "real");
    WriteWholeFile(path("real/data"), "old");
    fs::create_symlink("data", path("real/near"));
    fs::create_symlink("real/near", path("link"));
    fs::create_symlink(path("real/fresh"), path("dangling"));
    fs::create_symlink("loop", path("loop"));
    for (const char* link : {"link", "dangling"}) {
        WriteWholeFile(path(link), link);
        EXPECT_TRUE(fs::is_symlink(path(link)));
    }
    EXPECT_TRUE(fs::is_symlink(path("real/near")));
    EXPECT_EQ(ReadWholeFile(path("real/data")), "link");
    EXPECT_EQ(ReadWholeFile(path("real/fresh")), "dangling");
    EXPECT_THROW(WriteWholeFile(path("loop"), "new"), Fault);
}

TEST_F(Files, WhatIsNoFileIsRefused) {
    fs::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0666), 0);
    fs::create_symlink("/dev/full", path("device"));
    for (const char* name : {"folder", "pipe", "device", "missing/data"}) {
        EXPECT_THROW(WriteWholeFile(path(name), "new"), Fault) << name;
    }
    EXPECT_EQ(names(), (Names{"device", "pipe"}));
    EXPECT_EQ(fs::status(path("pipe")).type(), fs::file_type::fifo);
}

TEST_F(Files, TheLongestNameCanBeSavedAndOneLongerNot) {
    std::string name; // 255 bytes
    for (int i = 0; i < 85; ++i) {
        name += "位";
    }
    for (const char* text : {"first", "second"}) {
        WriteWholeFile(path(name), text);
        EXPECT_EQ(ReadWholeFile(path(name)), text);
    }
    fs::create_hard_link(path(name), path("other"));
    WriteWholeFile(path(name), "third");
    EXPECT_EQ(ReadWholeFile(path("other")), "third");
    EXPECT_THROW(WriteWholeFile(path(name + "x"), "new"), Fault);
    EXPECT_EQ(names(), (Names{"other", name}));
}

TEST_F(Files, FilesOfTheUserAndOfAnotherSaveStay) {
    const Names mine = {"data", "data.0123456789abcdef-0123456789abcdef.new", "data.new",
                        "data.old"};
    for (const std::string& name : mine) {
        WriteWholeFile(path(name), "mine");
    }
    SideFile busy(Beside(path("data")), ".new", 0600);
    busy.finish();
    WriteWholeFile(path("data"), "new");
    EXPECT_TRUE(fs::exists(busy.name()));
    EXPECT_EQ(names().size(), mine.size() + 1);
}

/// Saves over a file in the way told, with the mishap at the step told. False: the step was never
/// reached.
bool MishapHappens(const std::string& data, Mishap mishap, int step, std::string& fault) {
    TheDisk().mishap = mishap;
    TheDisk().at = step;
    TheDisk().calls = 0;
    fault.clear();
    bool happened = false;
    if (mishap == Mishap::Killed) {
        happened = !RunApart([&data] { WriteWholeFile(data, "new content"); });
    } else {
        try {
            WriteWholeFile(data, "new content");
        } catch (const Fault& told) {
            fault = told.what();
        }
        happened = TheDisk().calls >= step;
    }
    TheDisk().mishap = Mishap::None;
    return happened;
}

/// Every way to save, every call that it makes, every mishap there: nothing is lost, and the next
/// save leaves nothing but the file.
TEST_F(Files, AMishapAtAnyStepLosesNothing) {
    const std::string data = path("home/data");
    fs::create_directory(folder / "home");
    const auto holds = [](const std::string& name, const char* text) {
        return fs::exists(name) && ReadWholeFile(name) == text;
    };
    for (const std::string way : {"fresh", "plain", "named", "linked", "closed"}) {
        TheDisk().knowsNameless = way != "named";
        for (const Mishap mishap : {Mishap::FailsOnce, Mishap::FailsForGood, Mishap::Killed}) {
            bool more = true;
            for (int step = 1; more; ++step) {
                SCOPED_TRACE(way + " " + std::to_string(static_cast<int>(mishap)) + " at " +
                             std::to_string(step));
                TheDisk().closedFolder = "-";
                fs::remove(data);
                if (way != "fresh") {
                    WriteWholeFile(data, "what stood there before");
                }
                fs::remove(path("other"));
                if (way == "linked") {
                    fs::create_hard_link(data, path("other"));
                }
                TheDisk().closedFolder = way == "closed" ? path("home") : "-";
                const Names before = names();
                std::string fault;
                more = MishapHappens(data, mishap, step, fault);
                const bool stands =
                    way == "fresh" ? !fs::exists(data) : holds(data, "what stood there before");
                bool copied = false;
                for (const std::string& name : names()) {
                    const bool told = fault.find(name) != std::string::npos;
                    copied = copied || ((told || mishap == Mishap::Killed) &&
                                        holds(path(name), "what stood there before"));
                }
                EXPECT_TRUE(stands || copied || (fault.empty() && holds(data, "new content")));
                if (mishap != Mishap::Killed && !copied && way != "fresh") {
                    EXPECT_EQ(names(), before);
                }
                WriteWholeFile(data, "next");
                EXPECT_TRUE(holds(data, "next"));
                EXPECT_TRUE(way != "linked" || holds(path("other"), "next"));
                EXPECT_EQ(names().size(), way == "linked" ? 2U : 1U);
            }
        }
    }
}

TEST_F(Files, APortIsALinkInTheSettingsFolderOrABuiltInOne) {
    ThePlatform().settingsFolder = folder.string();
    EXPECT_EQ(DeviceOfPort(1), "/dev/ttyS0");
    EXPECT_EQ(DeviceOfPort(9), "/dev/ttyS8");

    fs::create_directory(folder / "ports");
    fs::create_symlink("/dev/null", path("ports/com1"));
    EXPECT_EQ(DeviceOfPort(1), path("ports/com1"));
    EXPECT_EQ(DeviceOfPort(2), "/dev/ttyS1");

    // The adapter behind the link was pulled out: no other port steps in for it.
    fs::create_symlink(path("gone"), path("ports/com2"));
    EXPECT_EQ(DeviceOfPort(2), path("ports/com2"));
    ThePlatform().settingsFolder.clear();
}

} // namespace
} // namespace qdw8
