#include "simulator/terminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace qdk8 {
namespace {

std::string SystemProblem(const std::string& what) {
    return what + ": " + std::strerror(errno);
}

bool MakeTerminal(Terminal& terminal) {
    terminal.master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (terminal.master < 0 || ::grantpt(terminal.master) != 0 ||
        ::unlockpt(terminal.master) != 0) {
        return false;
    }
    std::array<char, 256> name{};
    if (::ptsname_r(terminal.master, name.data(), name.size()) != 0) {
        return false;
    }
    terminal.slave = name.data();
    terminal.held = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (terminal.held < 0) {
        return false;
    }
    termios settings{};
    if (::tcgetattr(terminal.held, &settings) != 0) {
        return false;
    }
    ::cfmakeraw(&settings);
    ::cfsetspeed(&settings, B9600);
    return ::tcsetattr(terminal.held, TCSANOW, &settings) == 0;
}

bool MakeLink(const Terminal& terminal, std::string& problem) {
    struct stat status {};
    if (::lstat(terminal.link.c_str(), &status) == 0 && !S_ISLNK(status.st_mode)) {
        problem = terminal.link + ": exists and is no symbolic link";
        return false;
    }
    const std::string fresh = terminal.link + ".new";
    ::unlink(fresh.c_str());
    if (::symlink(terminal.slave.c_str(), fresh.c_str()) != 0 ||
        std::rename(fresh.c_str(), terminal.link.c_str()) != 0) {
        problem = SystemProblem(terminal.link + ": the link cannot be made");
        ::unlink(fresh.c_str());
        return false;
    }
    return true;
}

void RemoveLink(const Terminal& terminal) {
    std::array<char, 256> target{};
    const ssize_t length = ::readlink(terminal.link.c_str(), target.data(), target.size());
    if (length > 0 &&
        terminal.slave == std::string(target.data(), static_cast<std::size_t>(length))) {
        ::unlink(terminal.link.c_str());
    }
}

void WatchOpenings(Terminal& terminal) {
    terminal.openers = -1;
    terminal.watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (terminal.watch >= 0 &&
        ::inotify_add_watch(terminal.watch, terminal.slave.c_str(), IN_OPEN | IN_CLOSE) < 0) {
        ::close(terminal.watch);
        terminal.watch = -1;
    }
}

void Shut(int& file) {
    if (file >= 0) {
        ::close(file);
    }
    file = -1;
}

} // namespace

bool Plug(Terminal& terminal, std::string& problem) {
    if (!MakeTerminal(terminal)) {
        problem = SystemProblem("no pseudo-terminal");
        Unplug(terminal);
        return false;
    }
    if (!terminal.link.empty() && !MakeLink(terminal, problem)) {
        Unplug(terminal);
        return false;
    }
    WatchOpenings(terminal);
    return true;
}

void Unplug(Terminal& terminal) {
    if (!terminal.link.empty() && terminal.master >= 0) {
        RemoveLink(terminal);
    }
    Shut(terminal.watch);
    Shut(terminal.held);
    Shut(terminal.master);
    terminal.slave.clear();
    terminal.openers = -1;
}

void NoteOpenings(Terminal& terminal) {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    ssize_t length = 0;
    while ((length = ::read(terminal.watch, buffer.data(), buffer.size())) > 0) {
        std::size_t at = 0;
        while (at + sizeof(inotify_event) <= static_cast<std::size_t>(length)) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            at += sizeof event + event.len;
            if ((event.mask & IN_OPEN) != 0) {
                terminal.openers = std::max(terminal.openers, 0) + 1;
            } else if ((event.mask & IN_CLOSE) != 0) {
                terminal.openers = std::max(terminal.openers - 1, 0);
                // At its last close a real port forgets what was not read and that somebody wanted
                // it alone. Our own hold keeps this one from closing, so the next program would
                // find old replies, or, after one that was killed, a line locked for good.
                if (terminal.openers == 0) {
                    ::tcflush(terminal.held, TCIFLUSH);
                    ::ioctl(terminal.held, TIOCNXCL);
                }
            }
        }
    }
}

} // namespace qdk8
