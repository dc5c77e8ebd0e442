#include "file_fixture.h"

#include <unistd.h>

namespace qdw8::test {

PosiFilesTest::PosiFilesTest()
    : folder(testing::TempDir() + "qdw8-posi-files-" + std::to_string(::getpid())) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    SetPanelText(&MainPanel::lblDeviceType, 0, "QD- 44L-100_ ");
    SetPanelText(&MainPanel::lblDeviceType, 3, "QD- 61F-200  ");
    DevSettei = DevSetting;
}

PosiFilesTest::~PosiFilesTest() {
    std::filesystem::remove_all(folder);
}

FileQuestion PosiFilesTest::question(const std::string& title) const {
    return {FileQuestion::Kind::Open,
            title,
            "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*",
            "qdd",
            "",
            "",
            kFileMustExist};
}

void PosiFilesTest::expectOpen(const std::string& name) {
    platform.expectFile(question("Open Position Data file"), FileAnswer{path(name), name});
}

void PosiFilesTest::expectDeviceChoice(std::int16_t answer) {
    platform.expectSelection(
        {"Select",
         "The actuator setting recorded in a positional data file and the pc-software is "
         "different. Which following processing is done?",
         {"Positional data is opened with the actuator setting of the pc-software now.",
          "After the default parameter of the actuator recorded in the file is read, position data "
          "is opened.",
          "After the parameter file is read, positional data is opened."},
         false},
        answer);
}

std::string PosiFilesTest::row(int position, const std::string& comment) {
    std::string line = std::to_string(position);
    for (int axis = 0; axis < kAxes; ++axis) {
        line += R"(," 30"," 3"," 0"," )" + std::to_string(axis == 0 ? 1000 + position : 0) + "\"";
    }
    return line + R"(," 0"," 0"," 0",")" + comment + "\"\r\n";
}

std::string PosiFilesTest::head() {
    return "\"QD-K8\"\r\n\"QD- 44L-100_ \",\"\",\"\",\"QD- 61F-200  \"\r\n"
           "\"NEW\",\"NEW\",\"NEW\",\"NEW\"\r\n";
}

} // namespace qdw8::test
