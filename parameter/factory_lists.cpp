#include "parameter/factory_lists.h"

#include "app/boxes.h"
#include "app/field_reader.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "parameter/para_rows.h"
#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/whole_file.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace qdw8 {

std::array<std::vector<FactoryDevice>, kAxes> FactoryDeviceTable;
std::array<std::array<double, kFactoryColumns>, kFactoryRows> FactoryCommonTable;
Flag KeepAxisFlag;
std::int16_t KeptAxisMask;

namespace {

using CommonTable = std::array<std::array<double, kFactoryColumns>, kFactoryRows>;

constexpr std::size_t kRowOfFunction = 0;
constexpr std::size_t kRowOfAlm = 1;
constexpr std::size_t kPlain = 1;  ///< column that counts
constexpr std::size_t kWithPg = 2; ///< and the one for an axis with a pulse generator

/// The common items and where they stand. `AXIS` in row 7 is never used.
struct CommonRow {
    std::size_t row;
    ParaRow item;
};
constexpr std::array<CommonRow, 11> kCommonRows = {{
    {2, kRowHOME_OUT},
    {3, kRowALM_CODE},
    {4, kRowGRP_ENABLE},
    {5, kRowSM_TIMEOUT},
    {6, kRowSM_TIMER},
    {8, kRowAUTO_HOME},
    {9, kRowPG_TIMER},
    {10, kRowLS_SERCH_TIMER},
    {11, kRowSOFT_LIMIT},
    {12, kRowM0_DISABLE},
    {13, kRowSTOP_PAUSE},
}};

struct CommonSection {
    std::string_view name;
    std::int16_t rows;
    std::int16_t leastColumns;
};
constexpr std::array<CommonSection, 3> kSections = {
    {{"PG", 2, 3}, {"ETC", 5, 2}, {"SPECIAL", 7, 2}}};

/// The file is of another kind; what the user is told depends on which one it was.
struct WrongHead {};

double NextNumber(FieldReader& fields) {
    return WholeNumberField(fields.next());
}

std::int16_t NextWord(FieldReader& fields) {
    return ToInt16(NextNumber(fields));
}

FieldReader OpenList(const std::string& fileName) {
    return FieldReader(FromCp932(ReadWholeFile(BesideProgram(fileName))));
}

FactoryDevice NextDevice(FieldReader& fields) {
    FactoryDevice device;
    const std::string name = fields.next();
    device.key.size = Mid(name, 1, 3);
    device.key.speed = Mid(name, 4, 1);
    device.key.stroke = ToInt16(NumberFromText(Mid(name, 6, 3)));
    device.OFFSET = NextNumber(fields);
    device.PUSH = NextWord(fields);
    device.VEL = NextWord(fields);
    device.OFSVEL = NextWord(fields);
    device.PUSHVEL = NextWord(fields);
    device.SEQ = NextWord(fields);
    device.STROKE = NextNumber(fields);
    device.LEAD = NextWord(fields);
    device.PULSE = ToInt32(NextNumber(fields));
    device.JOGVEL = NextWord(fields);
    device.AUTODRIVE = NextWord(fields);
    device.Actuator = fields.next();
    return device;
}

std::vector<FactoryDevice> ReadDevices(const std::string& fileName, const AxisDevice& axisDevice) {
    FieldReader fields = OpenList(fileName);
    const std::string controller = fields.next();
    const std::string kind = fields.next();
    if (controller != "QD-K8" || (kind != "QD-STDPRM" && kind != "HN-STDPRM")) {
        throw WrongHead{};
    }
    const std::int16_t count = NextWord(fields);
    fields.next(); // of no use here
    if (count < 0 || count > static_cast<std::int16_t>(kFactoryRecords)) {
        throw Fault("a factory list has too many records");
    }
    const bool switched = IsSet(axisDevice.NewType) || IsSet(axisDevice.Vertical);
    std::vector<FactoryDevice> devices;
    for (std::int16_t i = 0; i < count; ++i) {
        devices.push_back(NextDevice(fields));
        devices.back().TYPE = switched ? 1 : 0;
    }
    return devices;
}

CommonTable ReadCommon() {
    FieldReader fields = OpenList("w8cmstpr.lst");
    const std::string controller = fields.next();
    const std::string kind = fields.next();
    if (controller != "QD-K8" || kind != "QD-CMNPRM") {
        throw WrongHead{};
    }
    if (NextWord(fields) != static_cast<std::int16_t>(kSections.size())) {
        throw Fault("the common list has other sections");
    }
    CommonTable table{};
    std::size_t row = 0;
    for (const CommonSection& section : kSections) {
        const std::string name = fields.next();
        const std::int16_t rows = NextWord(fields);
        const std::int16_t columns = NextWord(fields);
        // Rows run on from section to section, so one too many would shift every item behind it.
        if (name != section.name || rows != section.rows || columns < section.leastColumns ||
            columns > static_cast<std::int16_t>(kFactoryColumns)) {
            throw Fault("the common list has other sections");
        }
        for (std::int16_t i = 0; i < rows; ++i, ++row) {
            for (std::int16_t column = 0; column < columns; ++column) {
                table.at(row).at(static_cast<std::size_t>(column)) = NextNumber(fields);
            }
        }
    }
    return table;
}

/// The devices of all axes. False: told.
bool ReadAllDevices(std::array<std::vector<FactoryDevice>, kAxes>& tables) {
    std::string fileName;
    for (std::size_t axis = 0; axis < tables.size(); ++axis) {
        // There is no list for another family: the one of the axis before stands.
        if (FamilyText[axis] == "QD") {
            fileName = IsSet(DevSettei[axis].NewType) ? "w8nqdstpr.lst" : "w8qdstpr.lst";
        }
        try {
            if (fileName.empty()) {
                throw Fault("no list for this family");
            }
            tables[axis] = ReadDevices(fileName, DevSettei[axis]);
        } catch (const WrongHead&) {
            ShowBox(ResText(26) + "(" + std::to_string(axis + 1) + "AXIS)");
            return false;
        }
    }
    return true;
}

/// The record of an axis' actuator, if there is one.
const FactoryDevice* FindDevice(std::size_t axis) {
    const AxisDevice& wanted = DevSettei[axis];
    const ActuatorParts key{wanted.DevSize, wanted.DevSpeed, wanted.DevStroke};
    const auto& devices = FactoryDeviceTable[axis];
    const auto found = std::find_if(devices.begin(), devices.end(),
                                    [&key](const auto& device) { return device.key == key; });
    return found == devices.end() ? nullptr : &*found;
}

enum class Scope { All, ForDevice };

void TakeDevice(std::size_t axis, const FactoryDevice& device, Scope scope) {
    ParaSet.parts[axis] = device.key;
    ParaSet.OFFSET[axis] = device.OFFSET;
    ParaSet.PUSH[axis] = device.PUSH;
    ParaSet.VEL[axis] = device.VEL;
    ParaSet.OFSVEL[axis] = device.OFSVEL;
    ParaSet.PUSHVEL[axis] = device.PUSHVEL;
    ParaSet.STROKE[axis] = device.STROKE;
    ParaSet.LEAD[axis] = device.LEAD;
    ParaSet.PULSE[axis] = device.PULSE;
    ParaSet.JOGVEL[axis] = device.JOGVEL;
    ParaSet.TYPE[axis] = device.TYPE;
    ParaSet.Actuator[axis] = device.Actuator;
    if (scope == Scope::All) {
        ParaSet.SEQ[axis] = device.SEQ;
        ParaSet.AUTODRIVE[axis] = device.AUTODRIVE;
    }
}

void TakePg(std::size_t axis, Scope scope) {
    const std::size_t column = IsSet(DevSettei[axis].WithPG) ? kWithPg : kPlain;
    SetParaValue(ParaSet, ItemOfRow(kRowFUNCTION), axis,
                 FactoryCommonTable[kRowOfFunction][column]);
    if (scope == Scope::All) {
        SetParaValue(ParaSet, ItemOfRow(kRowALM), axis, FactoryCommonTable[kRowOfAlm][column]);
    }
}

void TakeCommon() {
    for (const CommonRow& common : kCommonRows) {
        const ParaItem& item = ItemOfRow(common.item);
        const double value = FactoryCommonTable[common.row][kPlain];
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            if (!item.perAxis() || !IsSet(AxisOff[axis])) {
                SetParaValue(ParaSet, item, axis, value);
            }
        }
    }
}

void TakeMask(Scope scope) {
    if (IsSet(KeepAxisFlag)) {
        ParaSet.AXIS = KeptAxisMask;
    } else if (scope == Scope::All) {
        ParaSet.AXIS = static_cast<std::int16_t>(AxisMaskOf(AxisOff));
        KeptAxisMask = ParaSet.AXIS;
    }
}

/// Splits the text that a record brought. Unlike a file's, it has no second form.
bool SplitActuator(std::size_t axis) {
    constexpr std::size_t kLength = 7;
    if (ParaSet.Actuator[axis].size() != kLength) {
        return false;
    }
    ParaSet.parts[axis] = ParseActuator(ParaSet.Actuator[axis]);
    return true;
}

/// False: an axis has no record, or one with a bad actuator text.
bool Merge(Scope scope) {
    bool good = true;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (IsSet(AxisOff[axis])) {
            continue;
        }
        const FactoryDevice* const device = FindDevice(axis);
        if (device != nullptr) {
            TakeDevice(axis, *device, scope);
        }
        TakePg(axis, scope);
        good = device != nullptr && SplitActuator(axis) && good;
    }
    if (scope == Scope::All) {
        TakeCommon();
    }
    TakeMask(scope);
    return good;
}

std::int16_t Load(Scope scope) {
    const ParameterSet before = ParaSet;
    try {
        if (ReadFactoryLists() == 0 && Merge(scope)) {
            ParaLoadedFlag = kSet;
            return 0;
        }
    } catch (const std::exception&) {
        ParaSet = before; // a figure in the common list that no item can hold
    }
    ShowTexts({36});
    return 1;
}

} // namespace

std::int16_t ReadFactoryLists() {
    try {
        std::array<std::vector<FactoryDevice>, kAxes> devices;
        if (!ReadAllDevices(devices)) {
            return 1;
        }
        FactoryCommonTable = ReadCommon();
        FactoryDeviceTable = std::move(devices);
        return 0;
    } catch (const WrongHead&) {
        ShowTexts({27});
        return 1;
    } catch (const std::exception&) {
        ShowTexts({28, 29});
        return 1;
    }
}

std::int16_t LoadFactoryParameters() {
    return Load(Scope::All);
}

std::int16_t LoadFactoryParametersForDevice() {
    return Load(Scope::ForDevice);
}

} // namespace qdw8
