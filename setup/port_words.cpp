#include "setup/port_words.h"

#include "app/string_table.h"
#include "platform/platform.h"
#include "platform/port_info.h"

namespace qdw8 {
namespace {

std::int16_t TextOf(const PortInfo& info) {
    switch (info.state) {
    case PortState::Ready: return info.linked ? 3284 : 3285;
    case PortState::NoDevice: return 3286;
    case PortState::LinkBroken: return 3287;
    case PortState::NoSerialDevice: return 3288;
    case PortState::NotAllowed: break;
    }
    return info.group.empty() ? 3307 : 3289;
}

/// The numbers that stand for the device, "COM1, COM3".
std::string NumbersOf(const std::string& path) {
    std::string numbers;
    for (int portNo = 1; portNo <= 9; ++portNo) {
        if (LookAtPort(portNo).device == path) {
            numbers += (numbers.empty() ? "COM" : ", COM") + std::to_string(portNo);
        }
    }
    return numbers;
}

} // namespace

std::string PortSentence(std::int16_t portNo, const PortInfo& info) {
    return ResText(TextOf(info), {std::to_string(portNo), info.device, info.link, info.group});
}

std::vector<std::string> SerialDeviceLines() {
    std::vector<std::string> lines;
    for (const SerialDevice& device : ThePlatform().ListSerialDevices()) {
        std::string line = device.path;
        for (const std::string& more : {device.name, NumbersOf(device.path)}) {
            line += more.empty() ? "" : " - " + more;
        }
        lines.push_back(line);
    }
    return lines.empty() ? std::vector{ResText(3283)} : lines;
}

} // namespace qdw8
