#include "windows/controls/number_field.h"

namespace qdw8 {
namespace {

constexpr int kSpareDigits = 5; ///< wider than its digits by so many

} // namespace

NumberField::NumberField(const QString& name, int digits, QWidget* parent)
    : KeyField(name, digits, IsDigit, parent) {
    setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * (digits + kSpareDigits));
}

} // namespace qdw8
