#include "platform/platform.h"

#include <filesystem>

namespace qdw8 {

Platform& ThePlatform() {
    static Platform platform;
    return platform;
}

std::string BesideProgram(const std::string& fileName) {
    return ThePlatform().programFolder + "/" + fileName;
}

std::string LinkOfPort(int portNo) {
    return ThePlatform().settingsFolder + "/ports/com" + std::to_string(portNo);
}

std::string DeviceOfPort(int portNo) {
    std::string link = LinkOfPort(portNo);
    std::error_code error;
    // A link whose device is gone counts too: opening it fails and says so, where the built-in
    // port would silently talk to something else.
    if (std::filesystem::symlink_status(link, error).type() !=
        std::filesystem::file_type::not_found) {
        return link;
    }
    return "/dev/ttyS" + std::to_string(portNo - 1);
}

} // namespace qdw8
