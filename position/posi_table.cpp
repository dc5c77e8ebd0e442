#include "position/posi_table.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"

#include <algorithm>
#include <filesystem>

namespace qdw8 {
namespace {

struct State {
    std::array<PosiRow, kPosiRows> table;
    std::array<PosiUnits, kPosiRows> units;
    std::array<StageRow, kPosiRows> stage;
    std::int16_t gridFirst = 0;
    std::int16_t gridLast = 0;
    std::int16_t gridRowCount = 1;
    std::int16_t posiFirst = 1;
    std::int16_t posiLast = 1;
    Flag dirty = kClear;
    std::string fileName;
    std::string filePath;
    std::string folder;
};
State state;

constexpr std::size_t kExtensionLength = 4; // ".qdd"

/// Rows of the working range that exist, as storage indices.
template<typename Visit> void ForWorkingRows(Visit visit) {
    const int first = std::max<int>(PosiFirst, 0);
    const int last = std::min<int>(PosiLast, kLastPosition);
    for (int row = first; row <= last; ++row) {
        visit(static_cast<std::size_t>(row));
    }
}

} // namespace

std::array<PosiRow, kPosiRows>& PosiTable = state.table;
std::array<PosiUnits, kPosiRows>& PosiUnitTable = state.units;
std::array<StageRow, kPosiRows>& PosiStage = state.stage;
std::int16_t& GridFirst = state.gridFirst;
std::int16_t& GridLast = state.gridLast;
std::int16_t& GridRowCount = state.gridRowCount;
std::int16_t& PosiFirst = state.posiFirst;
std::int16_t& PosiLast = state.posiLast;
Flag& PosiDirtyFlag = state.dirty;
std::string& PosiFileName = state.fileName;
std::string& PosiFilePath = state.filePath;
std::string& PosiFolder = state.folder;

std::optional<double> NumberOf(const StageCell& cell) {
    const auto* number = std::get_if<double>(&cell);
    return number != nullptr ? *number : NumberOfCell(std::get<std::string>(cell));
}

std::string TextOf(const StageCell& cell) {
    const auto* text = std::get_if<std::string>(&cell);
    return text != nullptr ? *text : PlainDecimal(std::get<double>(cell));
}

RangesBefore::RangesBefore()
    : gridFirst(GridFirst), gridLast(GridLast), gridRowCount(GridRowCount), posiFirst(PosiFirst),
      posiLast(PosiLast) {}

void RangesBefore::putBack() const {
    GridFirst = gridFirst;
    GridLast = gridLast;
    GridRowCount = gridRowCount;
    PosiFirst = posiFirst;
    PosiLast = posiLast;
}

void ClearPosiTable() {
    PosiRow fresh;
    fresh.written = true;
    for (int column = 0; column < kComment; ++column) {
        fresh.number[static_cast<std::size_t>(column)] = FreshNumber(column);
    }
    PosiTable.fill(fresh);
    PosiUnitTable.fill({});
}

void EmptyPosiTable() {
    PosiTable.fill({});
    PosiUnitTable.fill({});
}

void PosiStageToTable() {
    ForWorkingRows([](std::size_t row) {
        const StageRow& stage = PosiStage[row];
        PosiTable[row].written = true;
        for (std::size_t column = 0; column < kComment; ++column) {
            const double number = NumberOf(stage[column + 1]).value_or(0);
            const PosiColumn& kind = ColumnOf(static_cast<int>(column));
            if (kind.item == kPosi) {
                PosiUnitTable[row].pulse[static_cast<std::size_t>(kind.axis)] = number;
            } else {
                PosiTable[row].number[column] = number;
            }
        }
        PosiTable[row].comment = TextOf(stage[kComment + 1]);
    });
}

void ConvertTableToMm() {
    ForWorkingRows([](std::size_t row) {
        PosiUnits& units = PosiUnitTable[row];
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const AxisDevice& device = DevSetting[axis];
            units.mm[axis] = IsSet(AxisOff[axis])
                                 ? 0
                                 : PulseToMm(device.DevLead, device.DevPPR, units.pulse[axis]);
        }
    });
}

bool PosiTableHasData() {
    // The last row is not looked at: the test runs over the rows 0 to 998.
    return std::any_of(PosiTable.begin(), PosiTable.end() - 1,
                       [](const PosiRow& row) { return row.written; });
}

void ShowPosiFileName(const std::string& name) {
    PosiFilePath.clear();
    PosiFileName = name;
    SetPanel(&MainPanel::lblFileName, name);
}

void TakePosiFile(const std::string& path) {
    const std::filesystem::path file(path);
    ShowPosiFileName(FileNameOnly(file.filename().string()));
    PosiFolder = file.parent_path().string();
    PosiFilePath = path;
}

std::string FileNameOnly(const std::string& fileName) {
    // Characters, not bytes: a name without an extension may end in Japanese ones.
    std::size_t end = fileName.size();
    for (std::size_t left = kExtensionLength; left > 0 && end > 0; --left) {
        do {
            --end;
        } while (end > 0 && (static_cast<unsigned char>(fileName[end]) & 0xC0U) == 0x80U);
    }
    return fileName.substr(0, end);
}

void ResetPosiTable() {
    state = State{};
}

} // namespace qdw8
