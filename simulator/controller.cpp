#include "simulator/controller.h"

#include "simulator/commands.h"
#include "simulator/motion.h"

#include <algorithm>

namespace qdk8 {
namespace {

constexpr std::size_t kLongestLine = 256;
constexpr std::size_t kFramesKept = 20000;
constexpr const char* kTerminator = "\r\n";

} // namespace

Controller::Controller(const Memory& memory) {
    body.working = memory;
    body.lasting = memory;
    LeaveAstray(body);
}

void Controller::settle(Millis now) {
    if (!isOn) {
        return;
    }
    Advance(body, now);
    if (groupReply && !Moving(body)) {
        const GroupReply group = *groupReply;
        groupReply.reset();
        send(body.alarm ? body.alarm->text() : group.echo, group.fault,
             body.planEnded + turnaround);
    }
}

void Controller::receive(std::string_view bytes, Millis now) {
    settle(now);
    if (!isOn) {
        return;
    }
    line += bytes;
    for (std::size_t end = line.find(kTerminator); end != std::string::npos;
         end = line.find(kTerminator)) {
        const std::string frame = line.substr(0, end);
        line.erase(0, end + 2);
        obeyFrame(frame, now);
        settle(now);
    }
    if (line.size() > kLongestLine) {
        line.clear();
    }
}

void Controller::obeyFrame(const std::string& frame, Millis now) {
    heard.push_back({now, frame});
    if (heard.size() > kFramesKept) {
        heard.pop_front();
    }
    const std::string word = frame.substr(0, 3);
    ++heardOf[word];

    std::optional<Fault> fault;
    for (FaultRule& rule : rules) {
        if (frame.compare(0, rule.command.size(), rule.command) != 0) {
            continue;
        }
        ++rule.seen;
        if (!fault && rule.seen >= rule.first && rule.seen <= rule.last) {
            fault = rule.fault;
        }
    }
    // A request that is not obeyed has no reply of its own; only its terminator is there to spoil.
    std::optional<std::string> reply = "";
    const unsigned commits = body.commits;
    if (!fault || !KeepsFromActing(*fault)) {
        reply = AnswerFrame(body, frame, now);
    }
    if (!reply) {
        groupReply = GroupReply{frame, fault};
        return;
    }
    send(*reply, fault, now + turnaround + (body.commits != commits ? commitTime : 0));
}

void Controller::send(const std::string& reply, const std::optional<Fault>& fault, Millis at) {
    const std::string whole = reply + kTerminator;
    if (!fault) {
        post({at, whole});
    } else {
        for (const Outgoing& out : Spoil(*fault, whole, previousReply, at)) {
            post(out);
        }
    }
    if (!reply.empty()) {
        previousReply = whole;
    }
}

/// A line has one lane: nothing overtakes what waits already.
void Controller::post(Outgoing out) {
    if (!pending.empty()) {
        out.at = std::max(out.at, pending.back().at);
    }
    pending.push_back(std::move(out));
}

std::vector<Outgoing> Controller::takeDue(Millis now) {
    settle(now);
    const auto later = std::find_if(pending.begin(), pending.end(),
                                    [&](const Outgoing& out) { return out.at > now; });
    std::vector<Outgoing> due(pending.begin(), later);
    pending.erase(pending.begin(), later);
    return due;
}

void Controller::say(const std::string& bytes, Millis now) {
    settle(now);
    if (isOn) {
        post({now, bytes});
    }
}

std::optional<Millis> Controller::nextDue() const {
    if (!isOn) {
        return std::nullopt;
    }
    std::optional<Millis> next = NextEvent(body);
    if (!pending.empty() && (!next || pending.front().at < *next)) {
        next = pending.front().at;
    }
    return next;
}

void Controller::powerOff(Millis now) {
    settle(now);
    if (!isOn) {
        return;
    }
    HaltMotion(body, now);
    isOn = false;
    line.clear();
    pending.clear();
    groupReply.reset();
    previousReply.clear();
}

void Controller::powerOn(Millis now) {
    if (isOn) {
        return;
    }
    isOn = true;
    Restart(body, now);
}

void Controller::raiseAlarm(Alarm alarm, Millis now, std::optional<Millis> goesOutAfter,
                            bool announce) {
    settle(now);
    if (!isOn) {
        return;
    }
    Raise(body, alarm, now, goesOutAfter);
    if (announce) {
        post({now, alarm.text() + kTerminator});
    }
    settle(now);
}

void Controller::clearAlarm(Millis now) {
    settle(now);
    qdk8::ClearAlarm(body);
}

void Controller::setAxisCount(int axes) {
    body.axes = std::clamp(axes, 1, kAxisCountMax);
    body.identity[4] = static_cast<char>('0' + body.axes);
    for (Memory* memory : {&body.working, &body.lasting}) {
        qdk8::SetAxisMask(*memory, AxisMask(*memory) & AxesThere(body));
    }
    ++body.lastingChanges;
}

void Controller::setIdentity(const std::string& sixCharacters) {
    body.identity = sixCharacters.substr(0, 6);
    body.identity.resize(6, ' ');
}

void Controller::setBoard(int axis, const std::string& sixCharacters) {
    body.boards.at(static_cast<std::size_t>(axis - 1)) = sixCharacters;
}

void Controller::setAxisMask(unsigned mask) {
    for (Memory* memory : {&body.working, &body.lasting}) {
        qdk8::SetAxisMask(*memory, mask & AxesThere(body));
    }
    ++body.lastingChanges;
}

void Controller::setPositionRow(int position, const std::string& row) {
    const auto index = static_cast<std::size_t>(position - 1);
    body.working.positions.at(index) = row;
    body.lasting.positions.at(index) = row;
    ++body.lastingChanges;
}

void Controller::setBlock(int block, const std::string& digits) {
    body.working.blocks.at(static_cast<std::size_t>(block)) = digits;
    body.lasting.blocks.at(static_cast<std::size_t>(block)) = digits;
    ++body.lastingChanges;
}

void Controller::setInputs(std::uint32_t inputs, Millis now) {
    settle(now);
    qdk8::SetInputs(body, inputs, now);
}

void Controller::setHomed(unsigned mask) {
    body.homed = mask;
    for (unsigned axis = 0; axis < kAxisCountMax; ++axis) {
        if ((mask >> axis & 1U) != 0) {
            body.astray.at(axis) = 0;
        }
    }
}

bool Controller::place(int axis, int pulses, Millis now) {
    settle(now);
    if (Moving(body) || pulses < 0 || pulses > StrokeEnd(body.working, axis)) {
        return false;
    }
    const double here = pulses;
    body.tracks.at(static_cast<std::size_t>(axis)) = Track{here, here, now, now};
    body.astray.at(static_cast<std::size_t>(axis)) = 0;
    return true;
}

bool Controller::addFault(std::string_view rule, std::string& problem) {
    FaultRule fresh;
    if (!ParseFaultRule(rule, fresh, problem)) {
        return false;
    }
    addFault(fresh);
    return true;
}

bool Controller::removeFault(std::string_view rule) {
    const auto found = std::find_if(rules.begin(), rules.end(),
                                    [&](const FaultRule& r) { return r.text == rule; });
    if (found == rules.end()) {
        return false;
    }
    rules.erase(found);
    return true;
}

int Controller::position(int axis, Millis now) const {
    return PresentPosition(body, axis, now);
}

bool Controller::axisMoves(int axis, Millis now) {
    settle(now);
    return AxisMoves(body, axis, now);
}

int Controller::count(const std::string& word) const {
    const auto found = heardOf.find(word);
    return found == heardOf.end() ? 0 : found->second;
}

void Controller::clearCounters() {
    heard.clear();
    heardOf.clear();
}

} // namespace qdk8
