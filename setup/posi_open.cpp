#include "setup/posi_open.h"

#include "app/boxes.h"
#include "app/file_questions.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_columns.h"
#include "position/posi_command.h"
#include "position/posi_reader.h"
#include "position/posi_table.h"
#include "position/recovery.h"
#include "setup/devices_before.h"
#include "setup/file_devices.h"

#include <exception>

namespace qdw8 {

namespace {

void TestFileRange() {
    const bool noData = FileFirst == 0 && FileLast == 0;
    if (noData || FileLast < FileFirst) {
        throw Fault("the file's rows can't be shown");
    }
}

void TakeFileRange() {
    GridFirst = PosiFirst = FileFirst;
    GridLast = PosiLast = FileLast;
    GridRowCount = static_cast<std::int16_t>(FileLast - FileFirst + 1);
}

void ShowAxes() {
    ShowAxisDevices();
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (IsSet(DevSetting[axis].Device)) {
            FamilyText[axis] = "QD";
        }
    }
}

/// What is no number in the file stands in the grid as the file has it: the next check is to judge
/// it, and no other figure may come out of it on the way.
void ShowWhatIsNoNumber() {
    FreezeGrid();
    for (int position = GridFirst; position <= GridLast; ++position) {
        const StageRow& stage = PosiStage[static_cast<std::size_t>(position)];
        for (int column = 0; column < kComment; ++column) {
            const StageCell& cell = stage[static_cast<std::size_t>(column) + 1];
            if (!IsOffColumn(column) && !NumberOf(cell)) {
                SetGridText(position - GridFirst + kGridHeadRows, column + 1,
                            BoundCellText(column, FromCp932(TextOf(cell))).text);
            }
        }
    }
    ThawGrid();
}

/// From the dialog to the filled grid. False: the document is the one of before.
bool Open(const DevicesBefore& before) {
    const auto answer = AskFileToOpen(kPosiFile, 364);
    if (!answer) {
        ShowTexts({367});
        return false;
    }
    if (!ReadPosiFileWithTries(answer->path)) {
        return false;
    }
    TestFileRange();
    // Cancelled: opened all the same, with nothing copied.
    if (SettleFileDevices(before) == FileDevices::Failed) {
        return false;
    }
    TakeFileRange();
    ShowAxes();
    PosiStageToTable();
    ConvertTableToMm();
    QdDataHyoji_3();
    ShowWhatIsNoNumber();
    CalcMaxStrokeMm();
    ShowUnitScale();
    TakePosiFile(answer->path);
    if (!IsSet(FileHasRowsFlag)) {
        // What is shown is not out of this file, which some other program may need as it is.
        PosiFilePath.clear();
    }
    NothingUnsaved();
    if (IsSet(FileCommentCut)) {
        ShowTexts({3020});
    }
    return true;
}

} // namespace

void OpenPosiFile() {
    const PositionCommand command;
    const RangesBefore ranges;
    const DevicesBefore devices;
    bool opened = false;
    try {
        opened = Open(devices);
    } catch (const std::exception&) {
        ShowTexts({484});
    }
    if (!opened) {
        ranges.putBack();
        devices.putBack();
    }
}

} // namespace qdw8
