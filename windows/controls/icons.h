#pragma once

#include "windows/controls/drawings.h"

#include <QIcon>

namespace qdw8 {

/// The drawing as an icon. It is drawn anew for every size and follows the palette, so it is crisp
/// at every scale and readable on dark and on light.
QIcon IconOf(Drawing drawing);

} // namespace qdw8
