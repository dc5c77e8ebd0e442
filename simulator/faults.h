#pragma once

// Fault rules: which command, which occurrence, which fault. A rule is a text
//
//     COMMAND:OCCURRENCE:FAULT
//
// COMMAND     "*" for every frame, or the beginning of the frames meant: "0RP", "0CM1", "0RD6"
// OCCURRENCE  counted among the frames that COMMAND fits, from the moment the rule is made:
//             "3" the third, "*" every one, "4+" from the fourth on, "2-5" the second to the fifth
// FAULT       a name, for some "=VALUE" behind it; `faultHelp` lists them

#include "simulator/wire.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace qdk8 {

enum class FaultKind {
    Silence,     ///< the command is obeyed, the reply is lost
    Deaf,        ///< the request is lost: not obeyed, no reply
    Late,        ///< the reply comes `number` ms late, and holds up those behind it
    Part,        ///< the first `number` characters, then silence
    Bytes,       ///< one character at a time, `number` ms apart
    NoiseBefore, ///< `text` in front of the reply
    NoiseInside, ///< `text` in the middle of the reply
    Echo,        ///< `text` in place of the echoed word
    TooLong,     ///< one character too many before the terminator
    TooShort,    ///< one character too few
    Stray,       ///< the reply, and `text` unasked a little behind it
    Twice,       ///< the reply two times in one burst
    Error,       ///< `text` as an error reply; the command is not obeyed
    Reply,       ///< `text` as the reply; the command is obeyed
    Previous,    ///< the reply to the request before; the command is obeyed
    HangUp,      ///< the first `number` characters of the reply, then the cable is pulled
};

struct Fault {
    FaultKind kind = FaultKind::Silence;
    Millis number = 0;
    std::string text;
};

struct FaultRule {
    std::string text;    ///< as it was given
    std::string command; ///< empty: every frame
    long first = 1;
    long last = std::numeric_limits<long>::max();
    Fault fault;
    long seen = 0; ///< frames that the rule has met so far

    bool spent() const { return seen >= last; }
};

/// Reads a rule. On failure gives false, leaves `rule` as it was and tells in one line why.
bool ParseFaultRule(std::string_view text, FaultRule& rule, std::string& problem);

/// The lines of a help text, one for each fault.
std::string FaultHelp();

/// True when the command is not obeyed under this fault.
bool KeepsFromActing(const Fault& fault);

/// What goes out in place of `reply` (terminator included) at `at`; `previous` is the reply to the
/// request before, empty if there was none.
std::vector<Outgoing> Spoil(const Fault& fault, const std::string& reply,
                            const std::string& previous, Millis at);

} // namespace qdk8
