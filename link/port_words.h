#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Ports in words, for somebody who looks for the right one.
namespace qdw8 {

struct PortInfo;

/// One sentence: what the port is on this machine, whether it can be opened, and what is missing
/// if not.
std::string PortSentence(std::int16_t portNo, const PortInfo& info);

/// The serial devices that are there, a line each: path, name, and the port number under which the
/// program knows it. One line that says so if there are none.
std::vector<std::string> SerialDeviceLines();

} // namespace qdw8
