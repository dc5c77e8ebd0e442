#include "position_bench.h"

#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/axis_texts.h"

#include <filesystem>

namespace qdw8::test {

PositionBench::PositionBench() {
    AxisOff = {kClear, kSet, kSet, kClear};
    DevSetting[0] = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 0, 0};
    DevSetting[3] = {" 61", "F", 200, kSet, kSet, kSet, kSet, 8, 192, 0, 0};
    DevSettei = DevSetting;
    Culc_MaxPulse();
    CalcMaxStrokeMm();
    ShowAxisDevices();
    line.controller.setAxisMask(0b1001);
    line.controller.setBlock(6, "0002019000004E202C4C006400000000");
    line.controller.setBlock(12, "000800C0020012C03D4600C800000000");
    for (int position = 1; position <= 25; ++position) {
        line.controller.setPositionRow(position, "1E300000A1E30000001E30000001E20000000000");
    }
    line.controller.setPositionRow(999, "3C1304E201E30000001E30000000110012BF0314");
}

std::vector<std::string> PositionBench::gridTexts() {
    std::vector<std::string> texts;
    for (auto row = flgdData().rows.begin() + kGridHeadRows; row != flgdData().rows.end(); ++row) {
        texts.insert(texts.end(), row->text.begin(), row->text.end());
    }
    return texts;
}

std::string PositionBench::held(int position) const {
    return line.controller.machine().working.positions[static_cast<std::size_t>(position) - 1];
}

void PositionBench::expectRange(const std::string& dialog, std::int16_t first, std::int16_t last) {
    platform.expectScreen(dialog, [first, last] {
        PosiFirst = first;
        PosiLast = last;
    });
}

void PositionBench::expectFile(FileQuestion::Kind kind, const std::string& title,
                               const std::string& path) {
    const bool save = kind == FileQuestion::Kind::Save;
    const FileQuestion question{kind,
                                title,
                                "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*",
                                "qdd",
                                save ? "qdw8posi.qdd" : "",
                                save ? PosiFolder : "",
                                save ? kOverwritePrompt : kFileMustExist};
    const FileAnswer answer{path, std::filesystem::path(path).filename().string()};
    platform.expectFile(question, path.empty() ? std::nullopt : std::optional(answer));
}

std::string PositionBench::fileOf(const std::string& name) {
    return QDW8_SOURCE_DIR "/tests/position/files/" + name;
}

int ColumnNamed(const std::string& name) {
    const char axis = name.back();
    const bool numbered = axis >= '1' && axis <= '4';
    const std::string label = numbered ? name.substr(0, name.size() - 1) : name;
    int column = 0;
    while (ResText(ColumnOf(column).label) != label) {
        ++column;
    }
    return column + (numbered ? kAxisColumns * (axis - '1') : 0);
}

void ExpectRanges(std::int16_t first, std::int16_t last) {
    EXPECT_EQ(GridFirst, first);
    EXPECT_EQ(GridLast, last);
    EXPECT_EQ(GridRowCount, last - first + 1);
    EXPECT_EQ(PosiFirst, first);
    EXPECT_EQ(PosiLast, last);
    EXPECT_TRUE(GridShowsItsRange());
    EXPECT_EQ(flgdData().locked, 0);
    EXPECT_EQ(flgdData().frozen, 0);
}

} // namespace qdw8::test
