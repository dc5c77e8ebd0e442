#pragma once

#include "app/Module1.h"
#include "app/main_panel.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qdw8::test {

// The boxes of the line in full.
inline const std::string kPortBox = "Failed Communication port open.\r\n\r\n"
                                    "Please check a setting of a communication port.";
inline const std::string kTimeoutBox = "Communication timeout error!\r\n\r\n"
                                       "Check the followings;\r\n\r\n"
                                       " 1.Power ON for controller?\r\n\r\n"
                                       " 2.Communication cables are connected?";
inline const std::string kErrorBox = "Communication error occurs!";
inline const std::string kHomingBox = "Communication error occurs!\r\n"
                                      "Error No.3\r\n[Homing not completed]";
inline const std::string kSensorBox = "Communication error occurs!\r\n"
                                      "Error No.4\r\n[Home sensor not detected]";
inline const std::string kUnlistedBox = "Communication error occurs!\r\n"
                                        "[No error information in the error List]";
inline const std::string kLengthBox = "Communication data length error occurs!\r\n"
                                      "Length of data is wrong.";
inline const std::string kListBox = "No error list file.\r\n"
                                    "Put error list in the folder in which the program saved in  "
                                    "order to indicate error information correctly.";
inline const std::string kWrongDataBox = "Communication error occurs!\r\ntransmit data is wrong";

/// A fresh program on the scripted platform, on line, the lamp lit, nothing wrong. The error list
/// holds "13" and "24". Every change of a lamp or of the alarm display is noted among the events,
/// but for the home and the port lamp.
class LinkBench {
public:
    LinkBench();
    LinkBench(const LinkBench&) = delete;
    LinkBench& operator=(const LinkBench&) = delete;

    /// The alarm display as an earlier error reply left it.
    void letAlarmStand();
    /// The events since the last call.
    std::vector<std::string> newEvents();
    /// The states that an exchange may change, in words; what is not named is clear.
    static std::string state();

    ScriptedPlatform platform;

private:
    void notePanel();

    MainPanel seen;
};

class LinkTest : public testing::Test, protected LinkBench {};

} // namespace qdw8::test
