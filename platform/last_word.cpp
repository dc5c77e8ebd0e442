#include "platform/last_word.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <new>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kTries = 10;
constexpr int kAnswerMs = 300;
constexpr int kBetweenTriesMs = 100;

/// In memory that both processes see.
struct LastWord {
    std::atomic<bool> counts = false; ///< device and text stand
    std::array<char, PATH_MAX> device{};
    std::array<char, 16> text{};
};
LastWord* shared = nullptr;
int whileThere = -1; ///< open as long as the program is there

void Copy(const std::string& text, char* place) {
    *std::copy(text.begin(), text.end(), place) = '\0';
}

/// The line, as the program sets it; -1 if it can't be opened, as while the dead one still has it.
int OpenDevice(const char* device) {
    const int line = ::open(device, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    termios modes{};
    ::ioctl(line,
            TIOCEXCL); // nobody else, such as a program started anew, gets half of the answers
    if (line >= 0 && ::tcgetattr(line, &modes) == 0) {
        ::cfmakeraw(&modes);
        ::cfsetspeed(&modes, B9600);
        modes.c_cflag = (modes.c_cflag & ~static_cast<tcflag_t>(CSTOPB | CRTSCTS)) |
                        static_cast<tcflag_t>(CLOCAL | CREAD);
        ::tcsetattr(line, TCSANOW, &modes);
    }
    return line;
}

/// Waits until `text` has come back; a far end that keeps talking makes that no longer.
bool IsRepeated(int line, const std::string& text) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(kAnswerMs);
    std::string heard;
    pollfd come{line, POLLIN, 0};
    const auto left = [end] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    };
    while (left() > 0 && ::poll(&come, 1, static_cast<int>(left())) == 1) {
        std::array<char, 256> bytes{};
        const ssize_t count = ::read(line, bytes.data(), bytes.size());
        if (count <= 0) {
            return false;
        }
        heard.append(bytes.data(), static_cast<std::size_t>(count));
        if (heard.find(text) != std::string::npos) {
            return true;
        }
    }
    return false;
}

bool Say(const LastWord& word) {
    const int line = OpenDevice(word.device.data());
    if (line < 0) {
        return false;
    }
    const std::string text = word.text.data();
    const bool said =
        ::write(line, text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
        IsRepeated(line, text);
    ::close(line);
    return said;
}

[[noreturn]] void Outlive(int program, const LastWord& word) {
    // What ends the program, by the keys of a terminal or at the end of a session, comes here too.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE}) {
        std::signal(signal, SIG_IGN);
    }
    ::prctl(PR_SET_NAME, "qd-w8-stop");
    // Nothing of the program's is to be kept open for its sake.
    const auto end = static_cast<unsigned>(program);
    const int nothing = ::open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::dup2(nothing, standard);
    }
    ::close_range(STDERR_FILENO + 1, end - 1, 0);
    ::close_range(end + 1, ~0U, 0);
    if (::chdir("/") != 0) {
        ::_exit(1);
    }
    char none = 0;
    while (::read(program, &none, 1) < 0 && errno == EINTR) {
    }
    for (int tries = 0; tries < kTries && word.counts && !Say(word); ++tries) {
        ::poll(nullptr, 0, kBetweenTriesMs);
    }
    ::_exit(0);
}

} // namespace

void StartLastWord() {
    void* memory = ::mmap(nullptr, sizeof(LastWord), PROT_READ | PROT_WRITE,
                          MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    std::array<int, 2> ends{};
    if (memory == MAP_FAILED || ::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    auto* word = new (memory) LastWord;
    const pid_t process = ::fork();
    if (process == 0) {
        ::close(ends[1]);
        Outlive(ends[0], *word);
    }
    ::close(ends[0]);
    whileThere = ends[1];
    shared = process > 0 ? word : nullptr;
}

void KeepLastWord(const std::string& device, const std::string& text) {
    if (shared == nullptr) {
        return;
    }
    // At no moment is there half a word.
    shared->counts = false;
    ::prctl(PR_SET_DUMPABLE, text.empty() ? 1 : 0);
    if (!text.empty() && device.size() < shared->device.size() &&
        text.size() < shared->text.size()) {
        Copy(device, shared->device.data());
        Copy(text, shared->text.data());
        shared->counts = true;
    }
}

void SayLastWordNow() {
    shared = nullptr;
    ::close(std::exchange(whileThere, -1));
}

} // namespace qdw8
