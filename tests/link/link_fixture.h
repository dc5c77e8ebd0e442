#pragma once

#include "app/Module1.h"
#include "app/main_panel.h"
#include "support/bench.h"
#include "support/boxes.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qdw8::test {

/// A fresh program, on line, the lamp lit, nothing wrong. The error list holds "13" and "24". Every
/// change of a lamp or of the alarm display is noted among the events, but for the home and the
/// port lamp.
class LinkBench : public Bench {
public:
    LinkBench();

    /// The alarm display as an earlier error reply left it.
    void letAlarmStand();
    /// The events since the last call.
    std::vector<std::string> newEvents();
    /// The states that an exchange may change, in words; what is not named is clear.
    static std::string state();

private:
    void notePanel();

    MainPanel seen;
};

using LinkTest = Unit<LinkBench>;

} // namespace qdw8::test
