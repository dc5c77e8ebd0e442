#include "simulator/front.h"

#include "simulator/memory_file.h"

#include <chrono>
#include <cstdio>

namespace qdk8 {
namespace {

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

bool KeepMemoryOrTell(Front& front) {
    std::string problem;
    if (KeepMemory(front, problem)) {
        return true;
    }
    std::fprintf(stderr, "qd-k8-sim: %s\n", problem.c_str());
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

} // namespace qdk8
