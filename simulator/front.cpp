#include "simulator/front.h"

#include "simulator/control.h"
#include "simulator/memory_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <optional>
#include <poll.h>
#include <unistd.h>

namespace qdk8 {
namespace {

constexpr double kCharacterTime = 10 * 1e6 / 9600; // start bit, 8 data bits, stop bit
/// Characters come in handfuls, as from the receive buffer of an ordinary port; the last of a reply
/// comes at its very moment.
constexpr std::size_t kHandful = 8;
/// Rows written one by one go to the disk together, when the line has been quiet for a while.
constexpr double kQuietBeforeSaving = 500'000;

volatile std::sig_atomic_t endAsked = 0;

void AskEnd(int) {
    endAsked = 1;
}

void Trace(const Front& front, const char* mark, std::string_view bytes) {
    if (!front.options.trace) {
        return;
    }
    std::string shown;
    for (const char c : bytes) {
        if (c == '\r') {
            shown += "\\r";
        } else if (c == '\n') {
            shown += "\\n";
        } else {
            shown += c >= ' ' && c <= '~' ? c : '.';
        }
    }
    std::fprintf(stderr, "%10.3f %s %s\n", Microseconds() / 1000, mark, shown.c_str());
}

void Give(Front& front, const std::string& bytes, double now) {
    Trace(front, "->", bytes);
    front.lastRequest = now;
    front.controller.receive(bytes, static_cast<Millis>(now / 1000));
}

/// Everything that the program has written goes on its way to the controller.
void ReadLine(Front& front) {
    std::array<char, 4096> buffer{};
    const ssize_t length = ::read(front.terminal.master, buffer.data(), buffer.size());
    if (length <= 0) {
        return;
    }
    const std::string bytes(buffer.data(), static_cast<std::size_t>(length));
    const double now = Microseconds();
    front.lastTraffic = now;
    // Whoever writes has the port open, whatever was missed of its opening.
    if (front.terminal.openers == 0) {
        front.terminal.openers = 1;
    }
    if (front.options.unpaced) {
        Give(front, bytes, now);
        return;
    }
    front.arrivedUntil = std::max(front.arrivedUntil, now);
    std::size_t from = 0;
    while (from < bytes.size()) {
        const std::size_t end = std::min(bytes.find('\n', from), bytes.size() - 1) + 1;
        front.arrivedUntil += kCharacterTime * static_cast<double>(end - from);
        front.arriving.push_back({front.arrivedUntil, bytes.substr(from, end - from)});
        from = end;
    }
}

void CollectReplies(Front& front, double now) {
    for (const Outgoing& out : front.controller.takeDue(static_cast<Millis>(now / 1000))) {
        const double start =
            std::max({front.leftUntil, static_cast<double>(out.at) * 1000, front.lastRequest});
        if (!front.options.unpaced) {
            front.leftUntil = start + kCharacterTime * static_cast<double>(out.bytes.size());
        }
        front.leaving.push_back({start, out.bytes, 0, out.hangUp});
    }
}

/// When the next bytes of a reply are to be seen at the other end, and how many there are then.
double NextBytes(const Front& front, const Leaving& reply) {
    if (front.options.unpaced || reply.hangUp) {
        return reply.start;
    }
    const std::size_t upTo = std::min(reply.bytes.size(), reply.sent + kHandful);
    return reply.start + kCharacterTime * static_cast<double>(upTo);
}

void WriteBytes(Front& front, Leaving& reply, std::size_t upTo, double now) {
    const std::string_view bytes =
        std::string_view(reply.bytes).substr(reply.sent, upTo - reply.sent);
    reply.sent = upTo;
    front.lastTraffic = now;
    // A port that nobody has open hears nothing, and one that nobody reads loses what comes.
    if (front.terminal.openers == 0) {
        return;
    }
    if (::write(front.terminal.master, bytes.data(), bytes.size()) < 0 && errno != EAGAIN) {
        std::fprintf(stderr, "qd-k8-sim: the line takes nothing\n");
    }
    Trace(front, "<-", bytes);
}

void SendReplies(Front& front, double now) {
    while (!front.leaving.empty() && NextBytes(front, front.leaving.front()) <= now) {
        Leaving& reply = front.leaving.front();
        if (reply.hangUp) {
            PullCable(front);
            return;
        }
        // A late wake-up finds more than a handful due.
        std::size_t upTo = reply.bytes.size();
        if (!front.options.unpaced) {
            const auto due = static_cast<std::size_t>((now - reply.start) / kCharacterTime);
            upTo = std::min(upTo, std::max(due, reply.sent + kHandful));
        }
        WriteBytes(front, reply, upTo, now);
        if (reply.sent == reply.bytes.size()) {
            front.leaving.pop_front();
        }
    }
}

bool KeepMemoryOrTell(Front& front) {
    std::string problem;
    if (KeepMemory(front, problem)) {
        return true;
    }
    std::fprintf(stderr, "qd-k8-sim: %s\n", problem.c_str());
    return false;
}

/// What is due goes the whole way: to the controller, out of it, and onto the line.
void ServeDue(Front& front) {
    const double now = Microseconds();
    while (!front.arriving.empty() && front.arriving.front().due <= now) {
        const Arriving arrived = front.arriving.front();
        front.arriving.pop_front();
        Give(front, arrived.bytes, arrived.due);
        CollectReplies(front, arrived.due);
    }
    CollectReplies(front, now);
    if (now >= front.lastTraffic + kQuietBeforeSaving) {
        KeepMemoryOrTell(front);
    }
    SendReplies(front, now);
}

std::optional<double> NextMoment(const Front& front) {
    std::optional<double> next;
    const auto sooner = [&](double moment) { next = next ? std::min(*next, moment) : moment; };
    if (!front.arriving.empty()) {
        sooner(front.arriving.front().due);
    }
    if (!front.leaving.empty()) {
        sooner(NextBytes(front, front.leaving.front()));
    }
    if (const auto due = front.controller.nextDue()) {
        sooner(static_cast<double>(*due) * 1000);
    }
    if (front.controller.machine().lastingChanges != front.savedChanges) {
        sooner(front.lastTraffic + kQuietBeforeSaving);
    }
    return next;
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
        std::fputs(ObeyControl(front, line).c_str(), stdout);
        std::fflush(stdout);
    }
}

void SleepUntilDue(Front& front, const sigset_t& signals) {
    std::array<pollfd, 3> files{{{front.terminal.master, POLLIN, 0},
                                 {front.terminal.watch, POLLIN, 0},
                                 {front.options.control ? STDIN_FILENO : -1, POLLIN, 0}}};
    timespec wait{};
    const auto next = NextMoment(front);
    if (next) {
        const double left = std::max(*next - Microseconds(), 0.0) * 1000;
        wait.tv_sec = static_cast<time_t>(left / 1e9);
        wait.tv_nsec = static_cast<long>(std::fmod(left, 1e9));
    }
    if (::ppoll(files.data(), files.size(), next ? &wait : nullptr, &signals) <= 0) {
        return;
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

/// The signals come only while the loop sleeps, so none falls between a look at the flag and sleep.
sigset_t TakeSignals() {
    struct sigaction action {};
    action.sa_handler = AskEnd;
    sigset_t ends{};
    ::sigemptyset(&ends);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ::sigaction(signal, &action, nullptr);
        ::sigaddset(&ends, signal);
    }
    sigset_t before{};
    ::sigprocmask(SIG_BLOCK, &ends, &before);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ::sigdelset(&before, signal);
    }
    action.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &action, nullptr);
    return before;
}

bool TakeMemory(Front& front, std::string& problem) {
    const Options& options = front.options;
    Memory memory = options.blank ? BlankMemory() : StartMemory();
    if (!options.memoryFile.empty()) {
        const FileState state = LoadMemory(options.memoryFile, memory, problem);
        if (state == FileState::Broken) {
            problem = "memory file " + options.memoryFile + ": " + problem;
            return false;
        }
        if (state == FileState::Read && options.blank) {
            problem = "memory file " + options.memoryFile + ": exists, so --blank cannot be had";
            return false;
        }
    }
    front.controller = Controller(memory);
    front.controller.setKeeper([&front] { return KeepMemoryOrTell(front); });
    if (options.axes) {
        front.controller.setAxisCount(*options.axes);
    }
    if (options.mask) {
        front.controller.setAxisMask(*options.mask);
    }
    // A file that cannot be written is found out now and not at the first commit.
    front.savedChanges = front.controller.machine().lastingChanges + 1;
    return KeepMemory(front, problem);
}

} // namespace

double Microseconds() {
    using Clock = std::chrono::steady_clock;
    static const Clock::time_point start = Clock::now();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

Millis Milliseconds() {
    return static_cast<Millis>(Microseconds() / 1000);
}

bool KeepMemory(Front& front, std::string& problem) {
    const Machine& machine = front.controller.machine();
    if (machine.lastingChanges == front.savedChanges) {
        return true;
    }
    // Noted whatever comes of it: a full disk is told once for each change, not without end.
    front.savedChanges = machine.lastingChanges;
    if (front.options.memoryFile.empty() ||
        SaveMemory(front.options.memoryFile, machine.lasting, problem)) {
        return true;
    }
    problem = "memory file " + front.options.memoryFile + ": " + problem;
    return false;
}

void TellPlace(const Front& front, const char* event) {
    std::printf("qd-k8-sim %s on %s\n", event, front.terminal.slave.c_str());
    std::fflush(stdout);
}

void PullCable(Front& front) {
    Unplug(front.terminal);
    front.arriving.clear();
    front.leaving.clear();
    front.arrivedUntil = front.leftUntil = 0;
}

bool SetUp(Front& front, std::string& problem) {
    if (!TakeMemory(front, problem)) {
        return false;
    }
    const Options& options = front.options;
    Controller& controller = front.controller;
    if (!options.identity.empty()) {
        controller.setIdentity(options.identity);
    }
    for (int axis = 1; axis <= kAxisCountMax && !options.board.empty(); ++axis) {
        controller.setBoard(axis, options.board);
    }
    controller.setHomeSensorFails(options.homingFails);
    if (options.turnaround) {
        controller.setTurnaround(*options.turnaround);
    }
    for (const FaultRule& rule : options.faults) {
        controller.addFault(rule);
    }
    if (options.alarm) {
        controller.raiseAlarm(options.alarm->alarm, Milliseconds(), options.alarm->goesOutAfter);
    }
    front.terminal.link = options.link;
    return Plug(front.terminal, problem);
}

int Serve(Front& front) {
    const sigset_t signals = TakeSignals();
    TellPlace(front, "ready");
    while (!front.ended && endAsked == 0) {
        ServeDue(front);
        SleepUntilDue(front, signals);
    }
    Unplug(front.terminal);
    return KeepMemoryOrTell(front) ? 0 : 1;
}

} // namespace qdk8
