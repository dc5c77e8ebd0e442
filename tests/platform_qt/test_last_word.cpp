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
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace qdw8 {
namespace {

/// A program that keeps these words and is then killed. Gives how often the line was told to stop,
/// which it answers once it has been told more than `deaf` times; -1 if it was told anything else.
/// Meanwhile the far end may talk of something else.
int TellsBehind(const std::vector<std::string>& words, int deaf, bool talks = false) {
    const std::string stop = "0SP\r\n";
    int farEnd = -1;
    int nearEnd = -1;
    std::array<char, 128> name{};
    termios modes{};
    ::cfmakeraw(&modes); // as the program leaves it
    EXPECT_EQ(::openpty(&farEnd, &nearEnd, name.data(), &modes, nullptr), 0);
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
            if (told.size() > static_cast<std::size_t>(deaf) * stop.size()) {
                EXPECT_EQ(::write(farEnd, "0RC1\r\n0SP\r\n", 11), 11);
            }
        }
    }
    ::close(nearEnd);
    ::close(farEnd);
    int times = 0;
    for (; told.starts_with(stop); ++times) {
        told.erase(0, stop.size());
    }
    return told.empty() ? times : -1;
}

TEST(LastWord, GoesOutUntilItIsRepeatedUnlessItWasTakenBack) {
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    constexpr int kGivenUp = 10;
    for (const int deaf : {0, 2}) {
        for (const bool talks : {false, true}) {
            const int times = TellsBehind({"0MP\r\n", "0SP\r\n"}, deaf, talks);
            EXPECT_GT(times, deaf);
            EXPECT_LT(times, kGivenUp);
        }
    }
    EXPECT_EQ(TellsBehind({"0SP\r\n", ""}, 0), 0);
    EXPECT_EQ(TellsBehind({}, 0), 0);
}

} // namespace
} // namespace qdw8
