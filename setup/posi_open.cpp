#include "setup/posi_open.h"

#include "app/boxes.h"
#include "app/file_questions.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "device/device_name.h"
#include "device/device_settings.h"
#include "parameter/factory_lists.h"
#include "parameter/para_file.h"
#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_columns.h"
#include "position/posi_command.h"
#include "position/posi_reader.h"
#include "position/posi_table.h"
#include "position/recovery.h"
#include "setup/device_copies.h"
#include "setup/devices_before.h"

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

/// True if the file uses other axes or other actuators than the program.
bool FileDiffers() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        FileAxisOff[axis] = FlagOf(FileDevText[axis].empty());
    }
    if (ParseFileDevices() != 0) {
        throw Fault("the file names a device that doesn't exist");
    }
    return CompareActuatorSettingOfPosifile2PC() == 1 || FileAxisOff != AxisOff;
}

std::int16_t TakeAndStoreDevices() {
    if (TakeDevicesOfParaSet() != 0) {
        return 1;
    }
    WriteDeviceSettings();
    return 0;
}

/// The actuators of the file with their factory parameters; if they can't be had, the positions
/// are opened with the actuators of before.
void TakeFileDevices(const DevicesBefore& before) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const bool newlyUsed = IsSet(AxisOff[axis]) && !IsSet(FileAxisOff[axis]);
        if (newlyUsed && ParseFileDevice(axis) != 0) {
            throw Fault("the file names a device that doesn't exist");
        }
    }
    ReflectFileDevice2PcDevice();
    if (LoadFactoryParameters() != 0 || TakeAndStoreDevices() != 0) {
        before.putBack();
    }
}

/// The actuators of a parameter file. False: the command ends, and a box has told why.
bool TakeParameterFile() {
    const std::int16_t result = OpenParaFile();
    if (result == -1) {
        ShowTexts({367});
    }
    return result == 0 && TakeAndStoreDevices() == 0;
}

/// Puts other axes or actuators to the user. False: the command ends here.
bool SettleDevices(const DevicesBefore& before) {
    if (!FileDiffers()) {
        return true;
    }
    switch (AskChoice({ResText(471),
                       ResText(44),
                       {ResText(45), ResText(46), ResText(47)},
                       false,
                       DeviceDifferences()})) {
    case 0: LetDevSettingToDevSettei(); return true;
    case 1: TakeFileDevices(before); return true;
    case 2: return TakeParameterFile();
    default: return true; // cancelled: opened all the same, with nothing copied
    }
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
    if (!SettleDevices(before)) {
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
