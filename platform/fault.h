#pragma once

#include <stdexcept>
#include <string>

namespace qdw8 {

/// A run-time fault. A routine that a user command or an event reaches has one handler that turns
/// a fault into the routine's result; no fault crosses an operation.
class Fault : public std::runtime_error {
public:
    explicit Fault(const std::string& what) : std::runtime_error(what) {}
};

} // namespace qdw8
