#pragma once

#include <QString>

class QWidget;

namespace qdw8 {

/// Shows what the last check said of a field: with a reason it is coloured, and the reason is its
/// tool tip; else the tool tip tells what may be typed. A screen reader says the same behind the
/// field's name. Costs next to nothing when nothing has changed.
void ShowJudgement(QWidget& field, const QString& reason, const QString& limits);

} // namespace qdw8
