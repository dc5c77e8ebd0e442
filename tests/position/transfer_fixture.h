#pragma once

#include "position_fixture.h"
#include "support/simulated_line.h"

namespace qdw8::test {

/// The machine of the fixture at the other end: AXIS 1 and AXIS 4 in use, rows that differ.
class ControllerTest : public PositionTest {
protected:
    ControllerTest() : line(platform) {
        line.controller.setAxisMask(0b1001);
        line.controller.setBlock(6, "0002019000"
                                    "004E20"
                                    "2C"
                                    "4C"
                                    "0064"
                                    "00000000");
        line.controller.setBlock(12, "000800C002"
                                     "0012C0"
                                     "3D"
                                     "46"
                                     "00C8"
                                     "00000000");
        line.controller.setPositionRow(1, "1E3"
                                          "0"
                                          "030D4"
                                          "1E3"
                                          "0"
                                          "00000"
                                          "1E3"
                                          "0"
                                          "00000"
                                          "1E2"
                                          "0"
                                          "00000"
                                          "1"
                                          "2"
                                          "0A");
        line.controller.setPositionRow(999, "3C1"
                                            "3"
                                            "04E20"
                                            "1E3"
                                            "0"
                                            "00000"
                                            "1E3"
                                            "0"
                                            "00000"
                                            "011"
                                            "0"
                                            "012BF"
                                            "0"
                                            "3"
                                            "14");
        DevSetting[3].MaxPulse = 4800;
        LoadErrorList();
    }

    /// Makes a fault rule; the test fails if it can't be read.
    void fault(const std::string& rule) {
        std::string problem;
        ASSERT_TRUE(line.controller.addFault(rule, problem)) << problem;
    }

    SimulatedLine line;
};

} // namespace qdw8::test
