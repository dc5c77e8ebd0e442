#pragma once

// The QD-K8 behind its serial line: bytes in, bytes out, on a clock that the caller owns.
//
//     qdk8::Controller controller;
//     controller.receive("0RP001\r\n", 0);
//     for (const qdk8::Outgoing& out : controller.takeDue(0))
//         deliver(out.bytes);
//
// `now` is in milliseconds, starts anywhere and never runs backwards; every call first lets happen
// what was due since the last one. Bytes carry no time of their own: whoever wants the pace of a
// line delays them on the way (qd-k8-sim does).

#include "simulator/faults.h"
#include "simulator/machine.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qdk8 {

/// A frame as it arrived, without its terminator.
struct Received {
    Millis at = 0;
    std::string frame;
};

class Controller {
public:
    /// Powered on, nothing homed, no alarm.
    explicit Controller(const Memory& memory = StartMemory());

    // --- the line ---

    /// Takes bytes from the line; a frame may come in any number of pieces. Without power they are
    /// lost. A line of more than 256 characters without a terminator is dropped.
    void receive(std::string_view bytes, Millis now);
    /// What leaves the controller up to `now`, in order. `hangUp` is for the owner of the line to
    /// carry out; the controller itself goes on.
    std::vector<Outgoing> takeDue(Millis now);
    /// Sends `bytes` unasked. Nothing without power.
    void say(const std::string& bytes, Millis now);
    /// The next moment at which takeDue may have something, or the machine does something by
    /// itself; none while it only waits for the line.
    std::optional<Millis> nextDue() const;

    // --- power ---

    /// Everything that was not committed is lost, and so are replies on their way.
    void powerOff(Millis now);
    /// Lasting memory, working mode 0, nothing homed, no alarm. Nothing when power is on.
    void powerOn(Millis now);
    bool powered() const { return isOn; }

    // --- alarms ---

    /// Raises an alarm; all motion stops. A resettable one goes out by itself after `goesOutAfter`,
    /// if given. With `announce` its error reply goes out unasked.
    void raiseAlarm(Alarm alarm, Millis now, std::optional<Millis> goesOutAfter = {},
                    bool announce = false);
    /// The cause is gone, whatever the class.
    void clearAlarm(Millis now);
    /// The next homings end in the alarm "0%%134".
    void setHomeSensorFails(bool fails) { body.homeSensorFails = fails; }

    // --- what it is ---

    /// 1 to 4; also the digit that 0RV tells. Axes that are not there are taken out of use.
    void setAxisCount(int axes);
    /// The six characters behind 0RV, as they shall stand.
    void setIdentity(const std::string& sixCharacters);
    /// The six characters behind 0RV and the axis (1 to 4): version and board name.
    void setBoard(int axis, const std::string& sixCharacters);
    /// Axes in use, bit 0 AXIS 1, of those that are there; lasting at once.
    void setAxisMask(unsigned mask);
    /// A position row of 40 digits, checked by nobody; lasting at once.
    void setPositionRow(int position, const std::string& row);
    /// A block of 32 digits, checked by nobody; lasting at once.
    void setBlock(int block, const std::string& digits);
    /// The 24 input lines, the first digit of 0RI on top.
    void setInputs(std::uint32_t inputs, Millis now);
    /// The 24 output lines, the first digit of 0RO on top, as if something in the machine had
    /// switched them.
    void setOutputs(std::uint32_t outputs) { body.outputs = outputs & 0xFFFFFFU; }
    /// These axes, and no others, count as homed, without a homing.
    void setHomed(unsigned mask);
    /// Puts an axis (0 to 3) somewhere within its stroke, in pulses; false while the machine moves.
    bool place(int axis, int pulses, Millis now);
    /// Time from a request to its reply, 0 at first.
    void setTurnaround(Millis time) { turnaround = time; }
    /// Time that a 0WE takes, 100 at first.
    void setCommitTime(Millis time) { commitTime = time; }

    /// Called within each 0WE; false: what was to be committed is not, and alarm "0%%10E" is up.
    void setKeeper(std::function<bool()> keep) { body.keep = std::move(keep); }

    // --- faults ---

    /// Of several rules that fit a frame the one made first counts.
    void addFault(const FaultRule& rule) { rules.push_back(rule); }
    /// The same from its text; false with a line in `problem` when it cannot be read.
    bool addFault(std::string_view rule, std::string& problem);
    void clearFaults() { rules.clear(); }
    /// The first rule of this text goes; false if there is none.
    bool removeFault(std::string_view rule);
    const std::vector<FaultRule>& faults() const { return rules; }

    // --- looking on ---

    const Machine& machine() const { return body; }
    /// Lets happen what was due up to `now`; `machine` then shows that moment.
    void settle(Millis now);
    /// Pulses of an axis, 0 to 3.
    int position(int axis, Millis now) const;
    /// Whether an axis, 0 to 3, is on its way at this moment.
    bool axisMoves(int axis, Millis now);
    /// The moment since which an axis that isn't on its way stands; 0 if it never moved.
    Millis standsSince(int axis) const {
        return body.tracks.at(static_cast<std::size_t>(axis)).end;
    }
    /// Frames in order, the last 20000.
    const std::deque<Received>& frames() const { return heard; }
    /// How often frames came that begin with these three characters.
    int count(const std::string& word) const;
    const std::map<std::string, int>& counts() const { return heardOf; }
    void clearCounters();

private:
    void obeyFrame(const std::string& frame, Millis now);
    void send(const std::string& reply, const std::optional<Fault>& fault, Millis at);
    void post(Outgoing out);

    // A group run is answered when it has ended.
    struct GroupReply {
        std::string echo;
        std::optional<Fault> fault;
    };

    Machine body;
    bool isOn = true;
    std::string line;
    std::vector<Outgoing> pending;
    std::optional<GroupReply> groupReply;
    std::string previousReply;
    std::vector<FaultRule> rules;
    std::deque<Received> heard;
    std::map<std::string, int> heardOf;
    Millis turnaround = 0;
    Millis commitTime = 100;
};

} // namespace qdk8
