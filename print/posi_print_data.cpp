#include "print/posi_print_data.h"

#include "app/boxes.h"
#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "device/device_name.h"
#include "platform/cp932_text.h"
#include "position/grid_display.h"
#include "position/posi_command.h"
#include "position/posi_reader.h"
#include "position/posi_table.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <memory>
#include <utility>

namespace qdw8 {
namespace {

/// A file whose data can't be printed, and how far its conversion came.
struct BadFile {
    const char* step; ///< "(1)" a device's name, "(2)" the device list, "(3)" a position
};

/// What the reader fills, put back at the end: the next open, read or verify goes on from what was
/// there before, comments included.
class ReaderKept {
public:
    ReaderKept() = default;
    ~ReaderKept() {
        PosiStage = std::move(*stage);
        FileFirst = first;
        FileLast = last;
        FileHasRowsFlag = hasRows;
        FileCommentCut = commentCut;
        FileDevText = names;
        FileNewOld = types;
    }
    ReaderKept(const ReaderKept&) = delete;
    ReaderKept& operator=(const ReaderKept&) = delete;

private:
    using Stage = std::array<StageRow, kPosiRows>;
    std::unique_ptr<Stage> stage = std::make_unique<Stage>(std::move(PosiStage));
    std::int16_t first = FileFirst;
    std::int16_t last = FileLast;
    Flag hasRows = FileHasRowsFlag;
    Flag commentCut = FileCommentCut;
    std::array<std::string, kAxes> names = FileDevText;
    std::array<std::string, kAxes> types = FileNewOld;
};

struct RangesKept {
    RangesBefore before;
    RangesKept() = default;
    ~RangesKept() { before.putBack(); }
    RangesKept(const RangesKept&) = delete;
    RangesKept& operator=(const RangesKept&) = delete;
};

void ClearReader() {
    for (StageRow& row : PosiStage) {
        row.fill(std::string());
    }
    FileDevText.fill("");
    FileNewOld.fill("");
}

std::size_t AxisOfColumn(int column) {
    return static_cast<std::size_t>(ColumnOf(column).axis);
}

bool IsPosition(int column) {
    return ColumnOf(column).item == kPosi;
}

PosiPrintRow ShownRow(int position) {
    const auto index = static_cast<std::size_t>(position);
    PosiPrintRow printed{position, {}};
    for (int column = 0; column < kComment; ++column) {
        std::string& cell = printed.cells[static_cast<std::size_t>(column)];
        if (IsOffColumn(column)) {
            continue;
        }
        if (IsPosition(column) && IsSet(DispMmFlag)) {
            cell = MmText(PosiUnitTable[index].mm[AxisOfColumn(column)]);
        } else {
            cell = PlainDecimal(PosiTable[index].number[static_cast<std::size_t>(column)]);
        }
    }
    printed.cells[kComment] = PosiTable[index].comment;
    return printed;
}

/// Lead and pulses of each axis that the file uses.
std::array<LeadPpr, kAxes> FileUnits() {
    std::array<LeadPpr, kAxes> units;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (FileDevText[axis].empty()) {
            continue;
        }
        DeviceNameParts device;
        try {
            device = SplitDeviceName(FileDevText[axis]);
        } catch (const std::exception&) {
            throw BadFile{"(1)"};
        }
        if (CheckDeviceKey(device.size, device.speed, device.stroke) != 0) {
            throw BadFile{"(1)"};
        }
        units[axis] = GetDeviceLeadPpr(device.size, device.speed, device.stroke);
        if (units[axis].lead == 0 || units[axis].ppr == 0) {
            throw BadFile{"(2)"};
        }
        try {
            MaxPulseOf(device.stroke, units[axis].lead, units[axis].ppr);
        } catch (const std::exception&) {
            throw BadFile{"(3)"};
        }
    }
    return units;
}

std::string FileMm(const StageCell& cell, const LeadPpr& unit) {
    const auto pulses = NumberOf(cell);
    if (!pulses) {
        throw BadFile{"(3)"};
    }
    return MmText(PulseToMm(unit.lead, unit.ppr, *pulses));
}

/// A figure that can't be read is printed as it stands and never guessed.
std::string FileText(const StageCell& cell) {
    const auto number = NumberOf(cell);
    return number ? PlainDecimal(*number) : Trim(FromCp932(TextOf(cell)));
}

PosiPrintRow FileRow(int position, const std::array<LeadPpr, kAxes>& units) {
    const StageRow& stage = PosiStage[static_cast<std::size_t>(position)];
    PosiPrintRow printed{position, {}};
    for (int column = 0; column < kComment; ++column) {
        const StageCell& cell = stage[static_cast<std::size_t>(column) + 1];
        const bool ofAxis = ColumnOf(column).axis >= 0;
        const bool absent = TextOf(cell).empty(); // the file has no such row
        if (absent || (ofAxis && FileDevText[AxisOfColumn(column)].empty())) {
            continue;
        }
        printed.cells[static_cast<std::size_t>(column)] =
            IsPosition(column) && IsSet(DispMmFlag) ? FileMm(cell, units[AxisOfColumn(column)])
                                                    : FileText(cell);
    }
    printed.cells[kComment] = TextOf(stage[kComment + 1]);
    return printed;
}

/// False: there is nothing to print, and a box has told why.
bool ReadRows(const std::string& path) {
    if (!ReadPosiFileWithTries(path)) {
        return false;
    }
    const bool refused = std::all_of(FileNewOld.begin(), FileNewOld.end(),
                                     [](const std::string& type) { return type.empty(); });
    if (refused) {
        return false; // the reader has told that it is none of its files
    }
    if (!IsSet(FileHasRowsFlag) || FileLast < FileFirst || FileLast == 0) {
        throw BadFile{""};
    }
    return true;
}

std::optional<PosiPrint> Stage(const std::string& path) {
    ClearReader();
    if (!ReadRows(path)) {
        return std::nullopt;
    }
    if (IsSet(FileCommentCut)) {
        ShowTexts({3020});
    }
    GridFirst = FileFirst;
    GridLast = FileLast;
    GridRowCount = static_cast<std::int16_t>(FileLast - FileFirst + 1);
    if (!AskRange(Screens().frmSelectPosiNo3)) {
        return std::nullopt;
    }
    PosiPrint print{std::filesystem::path(path).filename().string(), path, FileDevText, {}};
    const auto units = IsSet(DispMmFlag) ? FileUnits() : std::array<LeadPpr, kAxes>();
    for (int position = PosiFirst; position <= PosiLast; ++position) {
        print.rows.push_back(FileRow(position, units));
    }
    return print;
}

} // namespace

PosiPrint StageShownPositions() {
    PosiPrint print{PosiFileName, PosiFilePath, {}, {}};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        print.devices[axis] = IsSet(AxisOff[axis]) ? "" : ThePanel().lblDeviceType[axis];
    }
    for (int position = PosiFirst; position <= PosiLast; ++position) {
        print.rows.push_back(ShownRow(position));
    }
    return print;
}

std::optional<PosiPrint> StagePosiFile(const std::string& path) {
    const ReaderKept reader;
    const RangesKept ranges;
    try {
        return Stage(path);
    } catch (const BadFile& bad) {
        ShowBox(Lines({ResText(398) + bad.step, ResText(396)}));
        return std::nullopt;
    }
}

} // namespace qdw8
