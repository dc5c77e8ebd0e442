// qd-k8-sim as a process: stories of somebody who starts it, and what a story can't tell.

#include "scripts.h"
#include "support/story.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <poll.h>
#include <regex>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;
using namespace qdk8::test;

bool Readable(int file) {
    constexpr int kLimit = 60000; // far beyond anything that is waited for: only a hang reaches it
    pollfd wanted{file, POLLIN, 0};
    return ::poll(&wanted, 1, kLimit) == 1;
}

/// Up to and with `end`; less when the file ends.
std::string ReadUpTo(int file, const std::string& end) {
    std::string text;
    char c = 0;
    while ((text.size() < end.size() || text.substr(text.size() - end.size()) != end) &&
           Readable(file) && ::read(file, &c, 1) == 1) {
        text += c;
    }
    return text;
}

void Write(int file, const std::string& bytes) {
    EXPECT_EQ(::write(file, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

/// What a shell command prints to both of its outputs. It may hang for a minute.
std::string OutputOf(const std::string& command) {
    std::string text;
    ::setenv("COMMAND", command.c_str(), 1);
    FILE* pipe = ::popen("timeout -s KILL 60 sh -c \"$COMMAND\" 2>&1", "r");
    for (int c = 0; (c = std::fgetc(pipe)) != EOF;) {
        text += static_cast<char>(c);
    }
    ::pclose(pipe);
    return Joined(text);
}

/// One simulator in a folder of its own, and the program's end of its line.
struct Story {
    fs::path folder;
    pid_t process = -1;
    int desk = -1;     ///< its standard input and output
    std::string place; ///< of the terminal
    int port = -1;

    Story() {
        std::string name = (fs::temp_directory_path() / "qdk8-XXXXXX").string();
        folder = ::mkdtemp(name.data());
        fs::current_path(folder);
        const std::string programs = fs::path(SIMULATOR_PROGRAM).parent_path();
        ::setenv("PATH", (programs + ":/usr/bin:/bin").c_str(), 1);
        ::setenv("ERROR_LIST", ERROR_LIST, 1);
    }
    ~Story() {
        end();
        fs::current_path("/");
        fs::remove_all(folder);
    }

    /// The exit status; the negative number of a signal that ended it.
    int end(int signal = SIGKILL) {
        int status = 0;
        if (process > 0) {
            ::kill(process, signal);
            ::waitpid(process, &status, 0);
        }
        process = -1;
        for (int* file : {&desk, &port}) {
            ::close(std::exchange(*file, -1));
        }
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    void start(const std::string& options) {
        end();
        std::array<int, 2> ends{};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
        const std::string command = "exec qd-k8-sim " + options + " 2>>errors";
        process = ::fork();
        if (process == 0) {
            ::dup2(ends[1], 0);
            ::dup2(ends[1], 1);
            ::execl("/bin/sh", "sh", "-fc", command.c_str(), nullptr);
            ::_exit(127);
        }
        ::close(ends[1]);
        desk = ends[0];
        const std::string line = ReadUpTo(desk, "\n");
        EXPECT_EQ(line.rfind("qd-k8-sim ready on /dev/", 0), 0U) << line;
        place = line.substr(line.find("/dev"), line.rfind('\n') - line.find("/dev"));
    }

    std::string order(const std::string& line) const {
        Write(desk, line + "\n");
        std::string answer;
        std::string last;
        do {
            last = ReadUpTo(desk, "\n");
            answer += last;
        } while (!last.empty() && last != "ok\n" && last.rfind("error", 0) != 0);
        return Joined(std::regex_replace(answer, std::regex("(error| on).*|ok\n"), "$1"));
    }
    void tell(const std::string& line);
};

/// What comes of one step of a story.
std::string Play(Story& story, const std::string& text) {
    const std::size_t blank = text.find(' ');
    const std::string verb = text.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : text.substr(blank + 1);
    if (verb == "$") {
        return OutputOf(rest);
    }
    if (verb == ">") {
        return story.order(rest);
    }
    if (verb == "start") {
        story.start(rest);
    } else if (verb == "signal") {
        return std::to_string(story.end(std::stoi(rest)));
    } else if (verb == "open") {
        story.port = ::open((rest.empty() ? story.place : rest).c_str(), O_RDWR | O_NOCTTY);
    } else if (verb == "close") {
        ::close(std::exchange(story.port, -1));
    } else if (verb == "unread") {
        Write(story.port, rest + "\r\n");
        return Readable(story.port) ? "" : "nothing to read";
    } else if (verb == "lock") {
        return ::ioctl(story.port, TIOCEXCL) == 0 ? "" : "not to be locked";
    } else if (verb == "unlocked") {
        int locked = -1; // asked of the line itself: the lock would not hold the superuser
        return ::ioctl(story.port, TIOCGEXCL, &locked) == 0 && locked == 0 ? "" : "locked";
    } else {
        Write(story.port, verb == "-" ? "" : text + "\r\n");
        return Shown(ReadUpTo(story.port, "\r\n"));
    }
    return "";
}

void Story::tell(const std::string& line) {
    const auto fields = Fields(line);
    EXPECT_EQ(Play(*this, fields[0]), fields[1]);
}

TEST(SimulatorProgram, GoesThroughItsStories) {
    qdw8::test::TellStories<Story>(STORIES, 1);
}

TEST(SimulatorProgram, KeepsThePaceOfTheLine) {
    Story story;
    story.start("--handful 3");
    Play(story, "open");
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(Play(story, "0RP001").size(), 46U);
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(took.count(), 5 * 56 * 10 / 9600.0) << "faster than 9600 baud can be";
}

} // namespace
