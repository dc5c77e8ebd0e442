#pragma once

#include <string>
#include <vector>

/// What the about window tells of the program and the machine that it runs on.
namespace qdw8 {

struct SystemLine {
    std::string label;
    std::string value;
};

/// Name and version of the program, "QD-W8 Ver1.40E".
std::string ProductLine();

/// System, screen, port and its state, version of the controller, folders, libraries. What a
/// machine doesn't tell reads so.
std::vector<SystemLine> SystemInformation();

/// The same as a text for a report, behind the product line; into the clipboard.
void CopySystemInformation();

} // namespace qdw8
