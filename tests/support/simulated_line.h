#pragma once

#include "simulator/controller.h"
#include "support/scripted_platform.h"

namespace qdw8::test {

/// The simulated controller at the other end of the scripted line, on the same clock.
class SimulatedLine {
public:
    explicit SimulatedLine(ScriptedPlatform& scripted);

    qdk8::Controller controller;

private:
    void deliver();

    ScriptedPlatform& platform;
};

} // namespace qdw8::test
