#include "simulator/pace.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <unistd.h>

namespace qdk8 {
namespace {

constexpr double kCharacterTime = 10 * 1e6 / 9600; // start bit, 8 data bits, stop bit
/// Characters come in handfuls, as from the receive buffer of an ordinary port, unless the user
/// wants another driver; the last of a reply comes at its very moment.
constexpr std::size_t kHandful = 8;
/// Rows written one by one go to the disk together, when the line has been quiet for a while.
constexpr double kQuietBeforeSaving = 500'000;

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

/// Up to where the next bytes of a reply go.
std::size_t NextEnd(const Front& front, const Leaving& reply) {
    const std::size_t left = reply.bytes.size() - reply.sent;
    const std::size_t handful =
        front.options.handful.value_or(front.options.unpaced ? left : kHandful);
    return reply.sent + std::min(left, handful);
}

/// When they are to be seen at the other end.
double NextBytes(const Front& front, const Leaving& reply) {
    if (front.options.unpaced) {
        return reply.start;
    }
    return reply.start + kCharacterTime * static_cast<double>(NextEnd(front, reply));
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
        WriteBytes(front, reply, NextEnd(front, reply), now);
        if (reply.sent == reply.bytes.size()) {
            front.leaving.pop_front();
        }
    }
}

} // namespace

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

} // namespace qdk8
