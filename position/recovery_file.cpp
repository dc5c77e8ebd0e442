#include "position/recovery_file.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "platform/check_digits.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/posi_table.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

namespace qdw8 {
namespace {

constexpr const char* kMagic = "QD-W8 unsaved positions";
constexpr int kVersion = 1;
/// A line of the text: fields between tabs.
using Fields = std::vector<std::string>;

/// What parts fields and lines must not stand in one.
constexpr std::array<std::pair<char, char>, 4> kEscapes{
    {{'\\', '\\'}, {'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}}};

void AppendField(std::string& text, std::string_view field) {
    for (const char byte : field) {
        const auto* const escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                                [byte](auto pair) { return pair.first == byte; });
        if (escape == kEscapes.end()) {
            text += byte;
        } else {
            text += {'\\', escape->second};
        }
    }
}

template<typename Texts> void AppendLine(std::string& text, const Texts& fields) {
    const char* separator = "";
    for (const auto& field : fields) {
        text += separator;
        AppendField(text, field);
        separator = "\t";
    }
    text += '\n';
}

/// The lines of a text one after the other. Throws `Fault` where there is none, or it has another
/// number of fields.
class Lines {
public:
    explicit Lines(std::string_view text) : left(text) {}

    std::string_view nextRaw() {
        const std::size_t end = left.find('\n');
        if (end == std::string_view::npos) {
            throw Fault("a line is missing");
        }
        const std::string_view line = left.substr(0, end);
        left.remove_prefix(end + 1);
        return line;
    }

    Fields next(std::size_t count) {
        Fields fields(1);
        const std::string_view line = nextRaw();
        for (std::size_t at = 0; at < line.size(); ++at) {
            if (line[at] == '\t') {
                fields.emplace_back();
            } else if (line[at] == '\\' && at + 1 < line.size()) {
                const char mark = line[++at];
                const auto* const escape =
                    std::find_if(kEscapes.begin(), kEscapes.end(),
                                 [mark](auto pair) { return pair.second == mark; });
                fields.back() += escape == kEscapes.end() ? mark : escape->first;
            } else {
                fields.back() += line[at];
            }
        }
        if (fields.size() != count) {
            throw Fault("a line has other fields");
        }
        return fields;
    }

    template<std::size_t count> std::array<std::string, count> nextArray() {
        Fields fields = next(count);
        std::array<std::string, count> texts;
        std::move(fields.begin(), fields.end(), texts.begin());
        return texts;
    }

    std::string_view rest() const { return left; }

private:
    std::string_view left;
};

int NumberIn(const std::string& field, int lowest, int highest) {
    const double number = WholeNumberField(field);
    if (number < lowest || number > highest) {
        throw Fault("a number is out of range");
    }
    return static_cast<int>(number);
}

void ReadBody(Lines lines, KeptTable& table) {
    Fields head = lines.next(8);
    table.time = std::move(head[0]);
    table.mm = head[1] == "mm";
    table.name = std::move(head[2]);
    table.path = std::move(head[3]);
    table.stamp = std::move(head[4]);
    table.first = NumberIn(head[5], 0, kLastPosition);
    const int count = NumberIn(head[6], 1, kLastPosition - table.first + 1);
    if (table.first == 0 && count == 1) {
        throw Fault("the grid has no such range");
    }
    table.devices = lines.nextArray<kAxes>();
    table.types = lines.nextArray<kAxes>();
    table.leads = lines.nextArray<kAxes>();
    if (head[7] == "edit") {
        const Fields edit = lines.next(4);
        table.edit = {{NumberIn(edit[0], table.first, table.first + count - 1),
                       NumberIn(edit[1], 0, kComment), edit[2] == "spoiled", edit[3]}};
    }
    for (int row = 0; row < count; ++row) {
        table.rows.push_back(lines.nextArray<kComment + 1>());
    }
}

} // namespace

std::array<std::string, kAxes> LeadTexts() {
    std::array<std::string, kAxes> texts;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            const AxisDevice& device = DevSetting[axis];
            texts[axis] = std::to_string(device.DevLead) + "/" + std::to_string(device.DevPPR);
        }
    }
    return texts;
}

std::string StampOf(const std::string& path) {
    std::error_code error;
    const auto time = std::filesystem::last_write_time(path, error);
    return error ? "" : std::to_string(time.time_since_epoch().count());
}

KeptTable TableOnScreen() {
    const FlexGrid& grid = flgdData();
    KeptTable table;
    if (grid.rows.size() <= kGridHeadRows) {
        return table;
    }
    table.time = TimeText(ThePlatform().GetLocalTime());
    table.mm = IsSet(DispMmFlag);
    table.name = PosiFileName;
    table.path = PosiFilePath;
    table.stamp = PosiFilePath.empty() ? "" : StampOf(PosiFilePath);
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        table.devices[axis] = ThePanel().lblDeviceType[axis];
        table.types[axis] = TypeWordOf(axis);
    }
    table.leads = LeadTexts();
    // A command that asks for a range moves the range variables before it moves the rows.
    table.first = static_cast<int>(NumberFromText(grid.rows[kGridHeadRows].text[0]));
    for (std::size_t row = kGridHeadRows; row < grid.rows.size(); ++row) {
        KeptTable::Row& cells = table.rows.emplace_back();
        std::copy_n(grid.rows[row].text.begin() + 1, cells.size(), cells.begin());
    }
    if (grid.edit.open) {
        table.edit = {{table.first + grid.row - kGridHeadRows, grid.col - 1, grid.edit.spoiled,
                       grid.edit.text}};
    }
    return table;
}

std::string TextOf(const KeptTable& table) {
    std::string body;
    AppendLine(body, Fields{table.time, table.mm ? "mm" : "pulses", table.name, table.path,
                            table.stamp, std::to_string(table.first),
                            std::to_string(table.rows.size()), table.edit ? "edit" : "-"});
    AppendLine(body, table.devices);
    AppendLine(body, table.types);
    AppendLine(body, table.leads);
    if (table.edit) {
        AppendLine(body,
                   Fields{std::to_string(table.edit->position), std::to_string(table.edit->column),
                          table.edit->spoiled ? "spoiled" : "-", table.edit->text});
    }
    for (const KeptTable::Row& row : table.rows) {
        AppendLine(body, row);
    }
    std::string text;
    AppendLine(text, Fields{kMagic, std::to_string(kVersion)});
    AppendLine(text, Fields{CheckDigits(body)});
    return text + body;
}

KeptForm ReadKeptTable(std::string_view text, KeptTable& table) {
    try {
        Lines lines(text);
        const Fields head = lines.next(2);
        if (head[0] != kMagic) {
            return KeptForm::Damaged;
        }
        if (NumberIn(head[1], 1, INT16_MAX) > kVersion) {
            return KeptForm::Newer;
        }
        const std::string_view digits = lines.nextRaw();
        if (digits != CheckDigits(lines.rest())) {
            return KeptForm::Damaged;
        }
        ReadBody(lines, table);
        return KeptForm::Good;
    } catch (const std::exception&) {
        return KeptForm::Damaged;
    }
}

} // namespace qdw8
