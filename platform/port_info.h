#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What stands behind a port number on this machine, and whether it can be used.
namespace qdw8 {

enum class PortState : std::uint8_t {
    Ready,          ///< there, and the user may open it; another program may have it, though
    NoDevice,       ///< no link, and the machine has no such built-in port
    LinkBroken,     ///< what the link names is not there
    NoSerialDevice, ///< what the link names is no device
    NotAllowed      ///< there, but the user may not open it
};

struct PortInfo {
    PortState state = PortState::NoDevice;
    std::string device; ///< what is opened: the end of the link, or the built-in port
    std::string link;   ///< where the link lies, or would lie
    bool linked = false;
    /// `NotAllowed`: the group whose members may open it; empty if there is none.
    std::string group;
};

/// A serial device that is there, opened by nobody or somebody.
struct SerialDevice {
    std::string path; ///< "/dev/ttyUSB0"
    std::string name; ///< for reading, as the adapter tells it; empty for a built-in port
};

/// By their paths. Looks, and opens nothing: that would disturb a line that another program uses.
std::vector<SerialDevice> SerialDevices();

/// Looks, and opens nothing. `portNo` is the number behind COM; other than 1 to 9 has no device.
PortInfo LookAtPort(int portNo);

} // namespace qdw8
