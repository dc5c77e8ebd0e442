#pragma once

#include "platform/qt/qt_platform.h"

namespace qdw8 {

/// The words in force.
const StandardTexts& TheStandardTexts();

} // namespace qdw8
