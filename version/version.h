#pragma once

/// The version of the delivery, for the program and the simulator alike.
namespace version {

/// The number, "1.4.0".
extern const char* const kNumber;
/// As the program shows it behind its name, "1.40E": the revision follows the minor number at once.
extern const char* const kShown;

} // namespace version
