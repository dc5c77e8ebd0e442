#include "platform/port_info.h"

#include "platform/platform.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

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
bool IsNameAlone(const std::string& device) {
    std::ifstream file("/sys/class/tty/" + fs::path(device).filename().string() + "/type");
    int type = 0;
    return file >> type && type == 0;
}

std::string GroupThatMayOpen(const struct stat& device) {
    constexpr mode_t kReadAndWrite = S_IRGRP | S_IWGRP;
    if ((device.st_mode & kReadAndWrite) != kReadAndWrite) {
        return {};
    }
    std::array<char, 4096> room{};
    group found{};
    group* result = nullptr;
    getgrgid_r(device.st_gid, &found, room.data(), room.size(), &result);
    return result != nullptr ? result->gr_name : std::to_string(device.st_gid);
}

} // namespace

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
    } else if (!info.linked && IsNameAlone(info.device)) {
        info.state = PortState::NoDevice;
    } else if (::access(info.device.c_str(), R_OK | W_OK) != 0) {
        info.state = PortState::NotAllowed;
        info.group = GroupThatMayOpen(device);
    } else {
        info.state = PortState::Ready;
    }
    return info;
}

} // namespace qdw8
