#pragma once

#include "device/axis_device.h"
#include "platform/whole_file.h"
#include "support/bench.h"
#include "support/boxes.h"
#include "support/story.h"

#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace qdw8::test {

/// A fresh program in whose folder lies nothing but a device list, one of tests/device/lists.
struct DeviceBench : Bench {
    DeviceBench() {
        useList("models");
        platform.recordsBoxes = true;
    }
    void useList(const std::string& name) const {
        leaveListsBehind();
        const std::string file = QDW8_SOURCE_DIR "/tests/device/lists/" + name + ".lst";
        writeFile("nqddevice.lst", ReadWholeFile(file));
    }
    /// The boxes since the last call: L and l the missing list in two lines and in one, D no
    /// device selected, W wrong data.
    std::string boxes() {
        std::string marks;
        for (const std::string& text : platform.boxes) {
            marks += text == BoxText("no device list") ? 'L'
                     : text == "No device list file."  ? 'l'
                     : text == BoxText("not selected") ? 'D'
                     : text == BoxText("wrong data")   ? 'W'
                                                       : '?';
        }
        platform.boxes.clear();
        return marks;
    }
};
using DeviceTest = Unit<DeviceBench>;

/// The parts of a text; an empty last one counts.
inline std::vector<std::string> Parts(const std::string& text, char mark) {
    std::istringstream stream(text + mark);
    std::vector<std::string> parts;
    for (std::string part; std::getline(stream, part, mark);) {
        parts.push_back(part);
    }
    return parts;
}

/// Runs the test for each row of a table of tests/device/tables, on a bench of its own. Fields are
/// parted by "|"; "#" begins a remark.
inline void ForEachRow(const std::string& table,
                       const std::function<void(DeviceBench&, std::vector<std::string>)>& test) {
    for (const std::string& line : LinesOf("device/tables/" + table + ".txt")) {
        SCOPED_TRACE(line);
        DeviceBench bench;
        test(bench, Parts(line, '|'));
    }
}

inline std::int16_t Number(const std::string& text) {
    return static_cast<std::int16_t>(std::stoi(text));
}

/// The flags of a device that are set: Q of the family QD, N new type, E pulse generator, V
/// vertical.
inline std::string FlagsOf(const AxisDevice& device) {
    return std::string(IsSet(device.Device) ? "Q" : "") + (IsSet(device.NewType) ? "N" : "") +
           (IsSet(device.WithPG) ? "E" : "") + (IsSet(device.Vertical) ? "V" : "");
}

/// A device in one text, " 44L100 2/400 QNV".
inline std::string TextOf(const AxisDevice& device) {
    return device.DevSize + device.DevSpeed + std::to_string(device.DevStroke) + " " +
           std::to_string(device.DevLead) + "/" + std::to_string(device.DevPPR) + " " +
           FlagsOf(device);
}

/// The device of a code, " 44L100", and of such flags.
inline AxisDevice MadeOf(const std::string& code, const std::string& flags) {
    const auto flag = [&](char c) { return FlagOf(flags.find(c) != std::string::npos); };
    return {code.substr(0, 3), code.substr(3, 1), Number(code.substr(4)), flag('N'), flag('E'),
            flag('V'),         flag('Q')};
}

} // namespace qdw8::test
