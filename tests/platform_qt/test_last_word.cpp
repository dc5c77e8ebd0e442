// What the line is told when the process is gone, over a pseudo-terminal.

#include "platform/last_word.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace qdw8 {
namespace {

/// A program that keeps these words and is then killed. Gives all that the line was told, `deaf`
/// times without an answer; meanwhile the far end may talk of something else.
std::string TellsBehind(const std::vector<std::string>& words, int deaf, bool talks = false) {
    int farEnd = -1;
    int nearEnd = -1;
    std::array<char, 128> name{};
    EXPECT_EQ(::openpty(&farEnd, &nearEnd, name.data(), nullptr, nullptr), 0);
    if (::fork() == 0) {
        ::close(farEnd);
        ::close(nearEnd);
        StartLastWord();
        for (const std::string& word : words) {
            KeepLastWord(name.data(), word);
        }
        ::raise(SIGKILL);
    }
    ::wait(nullptr);
    std::string told;
    pollfd come{farEnd, POLLIN, 0};
    // The second process comes here as an orphan when it has ended.
    while (::waitpid(-1, nullptr, WNOHANG) == 0) {
        std::array<char, 64> bytes{};
        if (talks) {
            EXPECT_EQ(::write(farEnd, "0RH1", 4), 4);
        }
        if (::poll(&come, 1, 10) == 1) {
            told.append(bytes.data(), static_cast<std::size_t>(
                                          std::max<ssize_t>(::read(farEnd, bytes.data(), 64), 0)));
            if (--deaf < 0) {
                EXPECT_EQ(::write(farEnd, "0RC1\r\n0SP\r\n", 11), 11);
            }
        }
    }
    ::close(nearEnd);
    ::close(farEnd);
    return told;
}

TEST(LastWord, GoesOutUntilItIsRepeatedUnlessItWasTakenBack) {
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    EXPECT_EQ(TellsBehind({"0MP\r\n", "0SP\r\n"}, 0), "0SP\r\n");
    EXPECT_EQ(TellsBehind({"0SP\r\n"}, 2), "0SP\r\n0SP\r\n0SP\r\n");
    EXPECT_EQ(TellsBehind({"0SP\r\n", ""}, 0), "");
    EXPECT_EQ(TellsBehind({}, 0), "");
    EXPECT_EQ(TellsBehind({"0SP\r\n"}, 1, true), "0SP\r\n0SP\r\n");
}

} // namespace
} // namespace qdw8
