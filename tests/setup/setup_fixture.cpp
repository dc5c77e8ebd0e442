#include "setup_fixture.h"

#include "app/command_states.h"
#include "device/Module2Calc.h"
#include "device/device_list.h"
#include "link/Module3Tusin.h"
#include "link/supervision.h"
#include "parameter/para_reset.h"
#include "platform/whole_file.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_table.h"
#include "position/position_reset.h"
#include "setup/detail_edit.h"

#include <cstdlib>
#include <filesystem>

namespace qdw8::test {

SetupTest::SetupTest() {
    std::string name = testing::TempDir() + "qdw8_setup_XXXXXX";
    folder = ::mkdtemp(name.data());
    ThePlatform().programFolder = QDW8_DATA_DIR;
    ResetModule1();
    ResetCommandStates();
    ResetMainPanel();
    ResetTransferDialog();
    ResetModule3Tusin();
    ResetSupervision();
    ResetDevices();
    ResetDeviceList();
    ResetParameters();
    ResetPositions();
    ResetDetailEdit();
    LoadErrorList();
    AxisOff = {kClear, kClear, kSet, kSet};
    FirstDeviceSetFlag = kSet;
    DevSetting[0] = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 0.005, 0, 0};
    DevSetting[1] = {" 52", "H", 200, kClear, kSet, kClear, kSet, 6, 400, 0.015, 0, 0};
    DevSettei[0] = {" 44", "L", 100, kSet, kClear, kSet, kSet, 0, 0, 0, 0, 0};
    DevSettei[1] = {" 52", "H", 200, kClear, kSet, kClear, kSet, 0, 0, 0, 0, 0};
    for (std::size_t axis : {2U, 3U}) {
        DevSetting[axis].DevSize = " 44";
        DevSetting[axis].DevSpeed = "L";
        DevSetting[axis].DevStroke = 100;
    }
    Culc_MaxPulse();
    CalcMaxStrokeMm();
}

SetupTest::~SetupTest() {
    std::filesystem::remove_all(folder);
}

void SetupTest::leaveListsBehind() const {
    ThePlatform().programFolder = folder;
}

std::string SetupTest::writeFile(const std::string& name, const std::string& bytes) const {
    WriteWholeFile(pathOf(name), bytes);
    return pathOf(name);
}

void SetupTest::showRows(std::int16_t first, std::int16_t last) {
    ClearPosiTable();
    GridFirst = PosiFirst = first;
    GridLast = PosiLast = last;
    GridRowCount = static_cast<std::int16_t>(last - first + 1);
    QdDataHyoji_3();
}

std::string SetupTest::cell(int position, int column) {
    return GridText(position - GridFirst + kGridHeadRows, column + 1);
}

void SetupTest::type(int position, int column, const std::string& text) {
    SetGridText(position - GridFirst + kGridHeadRows, column + 1, text);
}

namespace {

std::string Joined(const std::vector<std::string>& rows) {
    std::string text;
    for (const std::string& row : rows) {
        text += (text.empty() ? "" : ",") + row;
    }
    return text;
}

std::string DescribeBox(const std::string& name, const FormBox& box) {
    return name + (box.checked ? " on" : " off") + (box.enabled ? "" : " grey") +
           (box.visible ? "" : " hidden");
}

} // namespace

std::string Describe(const AxisPanel& panel) {
    return panel.comboDeviceSize.text + "|" + Joined(panel.comboDeviceSpeed.rows) + ">" +
           panel.comboDeviceSpeed.text + "|" + Joined(panel.comboDeviceStroke.rows) + ">" +
           panel.comboDeviceStroke.text;
}

std::string DescribeBoxes(const AxisPanel& panel) {
    return DescribeBox("PG", panel.chkDevPgUse) + ", " + DescribeBox("V", panel.chkDevVsiyou) +
           ", " + DescribeBox("Old", panel.chkNewOrOld);
}

} // namespace qdw8::test
