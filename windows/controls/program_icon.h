#pragma once

#include <QIcon>

namespace qdw8 {

/// The icon of the program, for its windows: the one that it has on the desktop, too.
QIcon ProgramIcon();

} // namespace qdw8
