#pragma once

#include "support/bench.h"
#include "support/boxes.h"

#include <string>

namespace qdw8::test {

/// A fresh program, on line, the lamp lit, nothing wrong. The error list holds "13" and "24".
class LinkBench : public Bench {
public:
    LinkBench();

    /// Queues answers as faults.txt tells them: "0RH1; 0CM0@30; 0R~H1".
    void answer(const std::string& answers);
    /// The alarm display as an earlier error reply left it.
    static void letAlarmStand();
    /// What has happened since the last call, in words: "0 send 10 again close off error, 20".
    std::string story();
    /// The states that an exchange may change, in words; what is not named is clear.
    static std::string state();
};

using LinkTest = Unit<LinkBench>;

} // namespace qdw8::test
