#pragma once

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace qdw8 {

/// From now on files can be dropped onto the window and its controls, but not while it is under a
/// modal one, nor where `takes` says no; the pointer shows that. `dropped` gets their paths as soon
/// as the program that they came from has its answer, which would otherwise wait under every
/// question; what is no file of this machine has an empty path.
void TakeDroppedFiles(QWidget& window, std::function<bool()> takes,
                      std::function<void(const std::vector<std::string>&)> dropped);

} // namespace qdw8
