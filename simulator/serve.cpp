#include "simulator/serve.h"

#include "simulator/front_control.h"
#include "simulator/pace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <mutex>
#include <poll.h>
#include <string>
#include <sys/prctl.h>
#include <unistd.h>

namespace qdk8 {
namespace {

/// A sleeper is called late. The last half of a character's time before a moment on the line is
/// waited for awake, so that the line is as exact as a wire.
constexpr double kAwakeBefore = 500;

volatile std::sig_atomic_t endAsked = 0;

void AskEnd(int) {
    endAsked = 1;
}

void ReadControl(Front& front) {
    std::array<char, 1024> buffer{};
    const ssize_t length = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (length < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (length <= 0) {
        front.ended = true;
        return;
    }
    front.typed.append(buffer.data(), static_cast<std::size_t>(length));
    for (std::size_t end = front.typed.find('\n'); end != std::string::npos && !front.ended;
         end = front.typed.find('\n')) {
        const std::string line = front.typed.substr(0, end);
        front.typed.erase(0, end + 1);
        std::fputs(ObeyFront(front, line).c_str(), stdout);
        std::fflush(stdout);
    }
}

void SleepUntilDue(Front& front, std::unique_lock<std::mutex>& held, const sigset_t& signals) {
    std::array<pollfd, 4> files{{{front.terminal.master, POLLIN, 0},
                                 {front.terminal.watch, POLLIN, 0},
                                 {front.options.control ? STDIN_FILENO : -1, POLLIN, 0},
                                 {front.wake, POLLIN, 0}}};
    timespec wait{};
    const auto next = NextMoment(front);
    if (next) {
        const double left = std::max(*next - kAwakeBefore - Microseconds(), 0.0) * 1000;
        wait.tv_sec = static_cast<time_t>(left / 1e9);
        wait.tv_nsec = static_cast<long>(std::fmod(left, 1e9));
    }
    held.unlock();
    const int ready = ::ppoll(files.data(), files.size(), next ? &wait : nullptr, &signals);
    held.lock();
    if (ready <= 0) {
        return;
    }
    if (files[3].revents != 0) {
        std::uint64_t times = 0;
        [[maybe_unused]] const ssize_t taken = ::read(front.wake, &times, sizeof times);
    }
    if (files[1].revents != 0) {
        NoteOpenings(front.terminal);
    }
    if ((files[0].revents & POLLIN) != 0) {
        ReadLine(front);
    }
    if (files[2].revents != 0) {
        ReadControl(front);
    }
}

constexpr std::array kEndSignals{SIGINT, SIGTERM, SIGHUP};

/// The signals come only while the loop sleeps, so none falls between a look at the flag and sleep.
/// Gives what is held back meanwhile.
sigset_t TakeSignals() {
    HoldSignals();
    struct sigaction action {};
    action.sa_handler = AskEnd;
    sigset_t asleep{};
    ::pthread_sigmask(SIG_BLOCK, nullptr, &asleep);
    for (const int signal : kEndSignals) {
        ::sigaction(signal, &action, nullptr);
        ::sigdelset(&asleep, signal);
    }
    action.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &action, nullptr);
    return asleep;
}

} // namespace

void HoldSignals() {
    sigset_t ends{};
    ::sigemptyset(&ends);
    for (const int signal : kEndSignals) {
        ::sigaddset(&ends, signal);
    }
    ::pthread_sigmask(SIG_BLOCK, &ends, nullptr);
}

int Serve(Front& front) {
    const sigset_t signals = TakeSignals();
    // A character on the line takes a millisecond; the system may not be late by a twentieth of it.
    ::prctl(PR_SET_TIMERSLACK, 1UL);
    std::unique_lock held(front.lock);
    TellPlace(front, "ready");
    while (!front.ended && endAsked == 0) {
        ServeDue(front);
        SleepUntilDue(front, held, signals);
    }
    Unplug(front.terminal);
    return KeepMemoryOrTell(front) ? 0 : 1;
}

} // namespace qdk8
