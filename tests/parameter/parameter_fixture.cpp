#include "parameter/parameter_fixture.h"

#include "app/main_panel.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "device/device_reset.h"
#include "parameter/para_reset.h"
#include "platform/whole_file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace qdw8::test {

ParameterTest::ParameterTest() {
    std::string name = testing::TempDir() + "qdw8_parameter_XXXXXX";
    folder = ::mkdtemp(name.data());
    ThePlatform().programFolder = QDW8_DATA_DIR;
    ResetModule1();
    ResetMainPanel();
    ResetTransferDialog();
    ResetModule3Tusin();
    ResetDevices();
    ResetParameters();
    AxisOff.fill(kClear);
}

ParameterTest::~ParameterTest() {
    std::filesystem::remove_all(folder);
}

std::string ParameterTest::writeFile(const std::string& name, const std::string& bytes) const {
    WriteWholeFile(pathOf(name), bytes);
    return pathOf(name);
}

void ParameterTest::leaveListsBehind() const {
    ThePlatform().programFolder = folder;
}

ParameterLineTest::ParameterLineTest() : line(platform) {
    LoadErrorList();
}

void ParameterLineTest::addFault(const std::string& rule) {
    std::string problem;
    ASSERT_TRUE(line.controller.addFault(rule, problem)) << problem;
}

void ParameterLineTest::expectQuiet() const {
    EXPECT_FALSE(TheTransferDialog().shown);
    EXPECT_EQ(CtBusyFlag, kClear);
    EXPECT_FALSE(platform.portOpen);
}

void ParameterLineTest::forgetFrames() {
    platform.sent.clear();
    line.controller.clearFaults();
    line.controller.clearCounters();
}

} // namespace qdw8::test
