#include "device/device_list.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/field_reader.h"
#include "app/number_forms.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/whole_file.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qdw8 {

std::array<DeviceListTable, kAxes> DeviceListTables;
std::array<Flag, kAxes> DeviceListFailed;
LeadPpr FoundLeadPpr;

namespace {

std::int16_t NextNumber(FieldReader& fields) {
    return ToInt16(WholeNumberField(fields.next()));
}

/// A code that can't be read is a code that isn't known; the device itself is there all the same.
std::int16_t NextOption(FieldReader& fields) {
    const std::string field = fields.next();
    try {
        return ToInt16(WholeNumberField(field));
    } catch (const Fault&) {
        return kOptionUnknown;
    }
}

DeviceListRow NextRow(FieldReader& fields) {
    const std::string key = fields.next();
    DeviceListRow row;
    row.size = Mid(key, 1, 3);
    row.speed = Mid(key, 4, 1);
    row.stroke = ToInt16(WholeNumberField(Mid(key, 6, 3)));
    row.lead = NextNumber(fields);
    row.ppr = NextNumber(fields);
    row.pgOption = NextOption(fields);
    row.verticalOption = NextOption(fields);
    return row;
}

/// All records of the file. Throws `Fault` as the header tells of a failed lookup.
std::vector<DeviceListRow> ReadRows() {
    FieldReader fields(ReadWholeFile(BesideProgram("nqddevice.lst")));
    const std::int16_t count = NextNumber(fields);
    if (count < 0 || count > static_cast<std::int16_t>(kDeviceListRows)) {
        throw Fault("the device list has no such number of records");
    }
    std::vector<DeviceListRow> rows;
    rows.reserve(kDeviceListRows);
    for (std::int16_t i = 0; i < count; ++i) {
        rows.push_back(NextRow(fields));
    }
    return rows;
}

std::vector<std::string> DistinctTexts(const std::vector<DeviceListRow>& rows,
                                       std::string DeviceListRow::*field) {
    std::vector<std::string> texts;
    for (const DeviceListRow& row : rows) {
        if (std::find(texts.begin(), texts.end(), row.*field) == texts.end()) {
            if (texts.size() == kDistinctTexts) {
                throw Fault("the device list has too many sizes or speeds");
            }
            texts.push_back(row.*field);
        }
    }
    return texts;
}

enum class ListBox { OneLine, TwoLines };
/// The command run in which each box came last.
std::array<int, 2> toldIn;

void TellNoList(ListBox box) {
    int& run = toldIn.at(static_cast<std::size_t>(box));
    if (CommandRun() != 0 && run == CommandRun()) {
        return;
    }
    run = CommandRun();
    if (box == ListBox::OneLine) {
        ShowTexts({15});
    } else {
        ShowTexts({15, 16});
    }
}

enum class Distinct { Sizes, SizesAndSpeeds };

DeviceListTable ReadTable(Distinct distinct) {
    DeviceListTable table;
    table.rows = ReadRows();
    table.sizes = DistinctTexts(table.rows, &DeviceListRow::size);
    if (distinct == Distinct::SizesAndSpeeds) {
        table.speeds = DistinctTexts(table.rows, &DeviceListRow::speed);
    }
    return table;
}

/// The tables of all axes hold the same data, so one reading and one box serve them all.
std::int16_t LoadAll(Distinct distinct) {
    try {
        DeviceListTables.fill(ReadTable(distinct));
        DeviceListFailed.fill(kClear);
        return 0;
    } catch (const Fault&) {
        DeviceListTables.fill(DeviceListTable{});
        DeviceListFailed.fill(kSet);
        TellNoList(ListBox::TwoLines);
        return 1;
    }
}

/// The first record with the key. Throws `Fault` when the list can't be read.
std::optional<DeviceListRow> FindRow(const std::string& size, const std::string& speed,
                                     std::int16_t stroke) {
    std::vector<DeviceListRow> rows = ReadRows();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const DeviceListRow& candidate) {
        return candidate.size == size && candidate.speed == speed && candidate.stroke == stroke;
    });
    if (row == rows.end()) {
        return std::nullopt;
    }
    return std::move(*row);
}

std::int16_t OptionCode(const std::string& size, const std::string& speed, std::int16_t stroke,
                        std::int16_t DeviceListRow::*code) {
    try {
        const auto row = FindRow(size, speed, stroke);
        return row ? (*row).*code : kOptionUnknown;
    } catch (const Fault&) {
        TellNoList(ListBox::OneLine);
        return kOptionUnknown;
    }
}

} // namespace

std::int16_t LoadDeviceList() {
    return LoadAll(Distinct::SizesAndSpeeds);
}

std::int16_t LoadDeviceListSizes() {
    return LoadAll(Distinct::Sizes);
}

std::int16_t LoadDeviceListAxis(int axis) {
    if (axis < 0 || axis >= kAxes) {
        TellNoList(ListBox::TwoLines);
        return 1;
    }
    const auto index = static_cast<std::size_t>(axis);
    DeviceListFailed[index] = kClear;
    try {
        DeviceListTables[index] = ReadTable(Distinct::Sizes);
        return 0;
    } catch (const Fault&) {
        DeviceListTables[index] = DeviceListTable{};
        DeviceListFailed[index] = kSet;
        TellNoList(ListBox::TwoLines);
        return 1;
    }
}

void ResetDeviceListBoxes() {
    toldIn.fill(0);
}

std::int16_t CheckDeviceKey(const std::string& size, const std::string& speed,
                            std::int16_t stroke) {
    const bool speedGood = !speed.empty() && speed.front() >= 'A' && speed.front() <= 'Z';
    return size.size() == 3 && speedGood && stroke >= 10 && stroke <= 500 ? 0 : 1;
}

LeadPpr GetDeviceLeadPpr(const std::string& size, const std::string& speed, std::int16_t stroke) {
    try {
        const auto row = FindRow(size, speed, stroke);
        return row ? LeadPpr{row->lead, row->ppr} : LeadPpr{};
    } catch (const Fault&) {
        TellNoList(ListBox::TwoLines);
        return {};
    }
}

std::int16_t FindDeviceLeadPpr(const std::string& size, const std::string& speed,
                               std::int16_t stroke) {
    try {
        const auto row = FindRow(size, speed, stroke);
        if (!row) {
            return 1;
        }
        FoundLeadPpr = {row->lead, row->ppr};
        return 0;
    } catch (const Fault&) {
        TellNoList(ListBox::TwoLines);
        return 1;
    }
}

std::int16_t DeviceInList(const std::string& size, const std::string& speed, std::int16_t stroke) {
    try {
        return FindRow(size, speed, stroke) ? 0 : 1;
    } catch (const Fault&) {
        // The lookups that only ask about a device name the missing file and leave it at that.
        TellNoList(ListBox::OneLine);
        return 1;
    }
}

std::int16_t PgOptionCode(const std::string& size, const std::string& speed, std::int16_t stroke) {
    return OptionCode(size, speed, stroke, &DeviceListRow::pgOption);
}

std::int16_t VerticalOptionCode(const std::string& size, const std::string& speed,
                                std::int16_t stroke) {
    return OptionCode(size, speed, stroke, &DeviceListRow::verticalOption);
}

} // namespace qdw8
