#include "device/device_lists.h"

#include "app/number_forms.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "platform/fault.h"

#include <algorithm>
#include <cctype>

namespace qdw8 {
namespace {

void AddOnce(std::vector<std::string>& rows, const std::string& text) {
    if (!Holds(rows, text)) {
        rows.push_back(text);
    }
}

std::string Upper(std::string text) {
    for (char& character : text) {
        character = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    }
    return text;
}

constexpr std::size_t kSizeCharacters = 3;

} // namespace

bool Holds(const std::vector<std::string>& rows, const std::string& text) {
    return std::find(rows.begin(), rows.end(), text) != rows.end();
}

const std::vector<std::string>& FilterSpeedsForSize(std::size_t axis, const std::string& size) {
    DeviceListTable& table = DeviceListTables[axis];
    table.speeds.clear();
    for (const DeviceListRow& row : table.rows) {
        if (row.size == size) {
            AddOnce(table.speeds, row.speed);
        }
    }
    return table.speeds;
}

std::vector<std::string> FilterStrokes(std::size_t axis, const std::string& size,
                                       const std::string& speed) {
    std::vector<std::string> strokes;
    for (const DeviceListRow& row : DeviceListTables[axis].rows) {
        if (row.size == size && row.speed == speed) {
            AddOnce(strokes, std::to_string(row.stroke));
        }
    }
    return strokes;
}

std::string SizeCodeOf(const std::string& typed) {
    const std::string trimmed = Trim(typed);
    return trimmed.empty() ? "" : PadLeft(Upper(trimmed), kSizeCharacters);
}

std::string SpeedLetterOf(const std::string& typed) {
    return Upper(Trim(typed));
}

bool CountsAsNewOnly(const std::string& size) {
    return ExistsOnlyAsNew(size) || size == " 71";
}

std::int16_t StrokeNumber(const std::string& text) {
    try {
        return ToInt16(NumberFromText(text));
    } catch (const Fault&) {
        return 0;
    }
}

} // namespace qdw8
