#include "simulator/controller.h"

#include "simulator/commands.h"
#include "simulator/motion.h"

#include <algorithm>

namespace qdk8 {

namespace {

constexpr std::size_t LongestLine = 256;
constexpr std::size_t FramesKept = 20000;
constexpr const char* Terminator = "\r\n";

} // namespace

Controller::Controller(const Memory& memory) {
    machine_.working = memory;
    machine_.lasting = memory;
}

void Controller::settle(Millis now) {
    if (!powered_)
        return;
    advance(machine_, now);
    if (groupReply_ && !moving(machine_)) {
        const GroupReply group = *groupReply_;
        groupReply_.reset();
        send(machine_.alarm ? machine_.alarm->text() : group.echo, group.fault,
             machine_.planEnded + turnaround_);
    }
}

void Controller::receive(std::string_view bytes, Millis now) {
    settle(now);
    if (!powered_)
        return;
    line_ += bytes;
    for (std::size_t end = line_.find(Terminator); end != std::string::npos;
         end = line_.find(Terminator)) {
        const std::string frame = line_.substr(0, end);
        line_.erase(0, end + 2);
        obeyFrame(frame, now);
        settle(now);
    }
    if (line_.size() > LongestLine)
        line_.clear();
}

void Controller::obeyFrame(const std::string& frame, Millis now) {
    frames_.push_back({now, frame});
    if (frames_.size() > FramesKept)
        frames_.pop_front();
    const std::string word = frame.substr(0, 3);
    ++counts_[word];

    std::optional<Fault> fault;
    for (FaultRule& rule : faults_) {
        if (frame.compare(0, rule.command.size(), rule.command) != 0)
            continue;
        ++rule.seen;
        if (!fault && rule.seen >= rule.first && rule.seen <= rule.last)
            fault = rule.fault;
    }
    // A request that is not obeyed has no reply of its own; only its terminator is there to spoil.
    std::optional<std::string> reply = "";
    const unsigned commits = machine_.commits;
    if (!fault || !keepsFromActing(*fault))
        reply = answer(machine_, frame, now);
    if (!reply) {
        groupReply_ = GroupReply{frame, fault};
        return;
    }
    send(*reply, fault, now + turnaround_ + (machine_.commits != commits ? commitTime_ : 0));
}

void Controller::send(const std::string& reply, const std::optional<Fault>& fault, Millis at) {
    const std::string whole = reply + Terminator;
    if (!fault) {
        post({at, whole});
    } else {
        for (const Outgoing& out : spoil(*fault, whole, previousReply_, at))
            post(out);
    }
    if (!reply.empty())
        previousReply_ = whole;
}

// A line has one lane: nothing overtakes what waits already.
void Controller::post(Outgoing out) {
    if (!pending_.empty())
        out.at = std::max(out.at, pending_.back().at);
    pending_.push_back(std::move(out));
}

std::vector<Outgoing> Controller::takeDue(Millis now) {
    settle(now);
    const auto later = std::find_if(pending_.begin(), pending_.end(),
                                    [&](const Outgoing& out) { return out.at > now; });
    std::vector<Outgoing> due(pending_.begin(), later);
    pending_.erase(pending_.begin(), later);
    return due;
}

std::optional<Millis> Controller::nextDue() const {
    if (!powered_)
        return std::nullopt;
    std::optional<Millis> next = nextEvent(machine_);
    if (!pending_.empty() && (!next || pending_.front().at < *next))
        next = pending_.front().at;
    return next;
}

void Controller::powerOff(Millis now) {
    settle(now);
    if (!powered_)
        return;
    stopMotion(machine_, now);
    powered_ = false;
    line_.clear();
    pending_.clear();
    groupReply_.reset();
    previousReply_.clear();
}

void Controller::powerOn(Millis now) {
    if (powered_)
        return;
    powered_ = true;
    restart(machine_, now);
}

void Controller::raiseAlarm(Alarm alarm, Millis now, std::optional<Millis> goesOutAfter,
                            bool announce) {
    settle(now);
    if (!powered_)
        return;
    raise(machine_, alarm, now, goesOutAfter);
    if (announce)
        post({now, alarm.text() + Terminator});
    settle(now);
}

void Controller::clearAlarm(Millis now) {
    settle(now);
    qdk8::clearAlarm(machine_);
}

void Controller::setAxisCount(int axes) {
    machine_.axes = std::clamp(axes, 1, AxisCountMax);
    machine_.identity[4] = static_cast<char>('0' + machine_.axes);
    for (Memory* memory : {&machine_.working, &machine_.lasting})
        qdk8::setAxisMask(*memory, axisMask(*memory) & axesThere(machine_));
    ++machine_.lastingChanges;
}

void Controller::setIdentity(const std::string& sixCharacters) {
    machine_.identity = sixCharacters.substr(0, 6);
    machine_.identity.resize(6, ' ');
}

void Controller::setBoard(int axis, const std::string& sixCharacters) {
    machine_.boards.at(static_cast<std::size_t>(axis - 1)) = sixCharacters;
}

void Controller::setAxisMask(unsigned mask) {
    for (Memory* memory : {&machine_.working, &machine_.lasting})
        qdk8::setAxisMask(*memory, mask & axesThere(machine_));
    ++machine_.lastingChanges;
}

void Controller::setPositionRow(int position, const std::string& row) {
    const auto index = static_cast<std::size_t>(position - 1);
    machine_.working.positions.at(index) = row;
    machine_.lasting.positions.at(index) = row;
    ++machine_.lastingChanges;
}

void Controller::setBlock(int block, const std::string& digits) {
    machine_.working.blocks.at(static_cast<std::size_t>(block)) = digits;
    machine_.lasting.blocks.at(static_cast<std::size_t>(block)) = digits;
    ++machine_.lastingChanges;
}

void Controller::setInputs(std::uint32_t inputs, Millis now) {
    settle(now);
    qdk8::setInputs(machine_, inputs, now);
}

bool Controller::addFault(std::string_view rule, std::string& problem) {
    FaultRule fresh;
    if (!parseFaultRule(rule, fresh, problem))
        return false;
    addFault(fresh);
    return true;
}

int Controller::position(int axis, Millis now) const {
    return presentPosition(machine_, axis, now);
}

int Controller::count(const std::string& word) const {
    const auto found = counts_.find(word);
    return found == counts_.end() ? 0 : found->second;
}

void Controller::clearCounters() {
    frames_.clear();
    counts_.clear();
}

} // namespace qdk8
