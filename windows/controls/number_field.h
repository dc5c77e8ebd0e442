#pragma once

#include "windows/controls/key_field.h"

namespace qdw8 {

/// A box for a whole number: digits only, at most so many; Enter moves on to the next control.
class NumberField : public KeyField {
public:
    NumberField(const QString& objectName, int digits, QWidget* parent);
};

} // namespace qdw8
