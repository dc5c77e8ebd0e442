#include "link/port_words.h"

#include "app/string_table.h"
#include "platform/port_info.h"

#include <map>

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

} // namespace

std::string PortSentence(std::int16_t portNo, const PortInfo& info) {
    return ResText(TextOf(info), {std::to_string(portNo), info.device, info.link, info.group});
}

std::vector<std::string> SerialDeviceLines() {
    std::vector<std::string> lines;
    std::map<std::string, std::string> numbers;
    for (int portNo = 1; portNo <= 9; ++portNo) {
        numbers[LookAtPort(portNo).device] += " - COM" + std::to_string(portNo);
    }
    for (const SerialDevice& device : SerialDevices()) {
        lines.push_back(device.path + " - " + (device.name.empty() ? ResText(3291) : device.name) +
                        numbers[device.path]);
    }
    return lines.empty() ? std::vector{ResText(3283)} : lines;
}

} // namespace qdw8
