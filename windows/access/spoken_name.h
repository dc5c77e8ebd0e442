#pragma once

#include <QString>

class QWidget;

namespace qdw8 {

/// Gives a control the name that a screen reader says. A list that drops down says its text instead
/// and is called by the label beside it; one that has no label of its own, as in a table of lists,
/// gets one here that isn't seen. May be called again with another name.
void NameControl(QWidget& control, const QString& name);

} // namespace qdw8
