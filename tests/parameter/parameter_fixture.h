#pragma once

#include "link/alarm.h"
#include "link/line_state.h"
#include "link/link_reset.h"
#include "link/port.h"
#include "link/receiver.h"
#include "parameter/para_set.h"
#include "parameter/sample_sets.h"
#include "support/scripted_platform.h"
#include "support/simulated_line.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace qdw8::test {

inline const std::string kTimeout =
    "Communication timeout error!\r\n\r\nCheck the followings;\r\n\r\n 1.Power ON for "
    "controller?\r\n\r\n 2.Communication cables are connected?";
inline const std::string kWrongData = "Communication error occurs!\r\ntransmit data is wrong";
inline const std::string kCommError = "Communication Error occured.";
inline const std::string kNotFilled =
    "No data in some of parameters.\r\n Please fill the data in and try it again.";
inline const std::string kInvalid =
    "Invalid value in some parameters.\r\nConfirm the value, and try it again.";

inline const std::string kNotSelected =
    "Device type is not selected.\r\nPlease select device type again.";

/// A program with four axes in use, the delivered lists beside it, and a folder for files.
class ParameterTest : public testing::Test {
protected:
    ParameterTest();
    ~ParameterTest() override;

    std::string pathOf(const std::string& name) const { return folder + "/" + name; }
    std::string writeFile(const std::string& name, const std::string& bytes) const;
    /// Makes the folder the one of the program: no list lies in it yet.
    void leaveListsBehind() const;

    ScriptedPlatform platform;
    std::string folder;
};

/// The same with the simulated controller on the line, which holds its start machine.
class ParameterLineTest : public ParameterTest {
protected:
    ParameterLineTest();

    void addFault(const std::string& rule);
    /// The parameter memory as it stands now, and what a power cycle would leave of it.
    const std::array<std::string, 13>& working() const {
        return line.controller.machine().working.blocks;
    }
    const std::array<std::string, 13>& lasting() const {
        return line.controller.machine().lasting.blocks;
    }
    /// What every batch must leave behind, good or not.
    void expectQuiet() const;
    void forgetFrames();

    SimulatedLine line;
};

} // namespace qdw8::test
