#include "platform/port_info.h"

#include "platform/platform.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <grp.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

/// What the link names: the device at the end of all links, or as it stands if that is not there.
std::string EndOf(const std::string& link) {
    std::error_code error;
    const fs::path end = fs::canonical(link, error);
    if (!error) {
        return end.string();
    }
    const fs::path named = fs::read_symlink(link, error);
    return error ? link : (fs::path(link).parent_path() / named).lexically_normal().string();
}

/// The system keeps names for built-in ports that no machine has; it knows those as of no type.
bool IsNameAlone(const fs::path& device) {
    std::ifstream file(fs::path(ThePlatform().serialClassFolder) / device.filename() / "type");
    int type = 0;
    return file >> type && type == 0;
}

std::string LineOf(const fs::path& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

/// What the adapter tells of itself stands some steps above its serial line: "USB UART (Maker)".
std::string NameOfAdapter(const fs::path& device) {
    constexpr int kSteps = 4;
    std::error_code error;
    fs::path at = fs::canonical(device, error);
    for (int step = 0; !error && step < kSteps; ++step, at = at.parent_path()) {
        if (const std::string product = LineOf(at / "product"); !product.empty()) {
            const std::string maker = LineOf(at / "manufacturer");
            return product + (maker.empty() ? "" : " (" + maker + ")");
        }
    }
    return {};
}

/// A group of many members needs much room for them all.
std::string NameOfGroup(gid_t number) {
    constexpr std::size_t kMostRoom = std::size_t{1} << 20U;
    group found{};
    group* result = nullptr;
    int error = ERANGE;
    for (std::vector<char> room(4096); error == ERANGE && room.size() <= kMostRoom;
         room.resize(2 * room.size())) {
        error = getgrgid_r(number, &found, room.data(), room.size(), &result);
        if (error == 0 && result != nullptr) {
            return found.gr_name;
        }
    }
    return std::to_string(number);
}

/// Nobody joins the administrator's own.
std::string GroupThatMayOpen(const struct stat& device) {
    constexpr mode_t kReadAndWrite = S_IRGRP | S_IWGRP;
    if ((device.st_mode & kReadAndWrite) != kReadAndWrite || device.st_gid == 0) {
        return {};
    }
    // Another machine may have to be asked for the name, which takes its time: once a run.
    static std::map<gid_t, std::string> names;
    const auto known = names.find(device.st_gid);
    return known != names.end()
               ? known->second
               : names.emplace(device.st_gid, NameOfGroup(device.st_gid)).first->second;
}

} // namespace

std::vector<SerialDevice> SerialDevices() {
    std::vector<SerialDevice> devices;
    std::error_code error;
    for (fs::directory_iterator at(ThePlatform().serialClassFolder, error), end; at != end;
         at.increment(error)) {
        // Consoles and pseudo-terminals have no device behind them.
        const fs::path device = at->path() / "device";
        if (fs::exists(device, error) && !IsNameAlone(at->path())) {
            devices.push_back({"/dev/" + at->path().filename().string(), NameOfAdapter(device)});
        }
    }
    std::sort(devices.begin(), devices.end(), [](const auto& one, const auto& other) {
        const auto order = [](const std::string& path) { return std::pair(path.size(), path); };
        return order(one.path) < order(other.path);
    });
    return devices;
}

PortInfo LookAtPort(int portNo) {
    PortInfo info;
    info.link = LinkOfPort(portNo);
    info.device = DeviceOfPort(portNo);
    info.linked = info.device == info.link;
    if (info.linked) {
        info.device = EndOf(info.link);
    }
    struct stat device {};
    const bool there = ::stat(info.device.c_str(), &device) == 0;
    if (portNo < 1 || portNo > 9 || !there) {
        info.state = there || !info.linked ? PortState::NoDevice : PortState::LinkBroken;
    } else if (!S_ISCHR(device.st_mode)) {
        info.state = PortState::NoSerialDevice;
    } else if (IsNameAlone(info.device)) {
        info.state = info.linked ? PortState::LinkBroken : PortState::NoDevice;
    } else if (::access(info.device.c_str(), R_OK | W_OK) != 0) {
        info.state = PortState::NotAllowed;
        info.group = GroupThatMayOpen(device);
    } else {
        info.state = PortState::Ready;
    }
    return info;
}

} // namespace qdw8
