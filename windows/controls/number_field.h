#pragma once

#include <QLineEdit>

namespace qdw8 {

/// A box for a whole number: digits only, at most so many, by typing alone; Enter moves on to the
/// next control, and the whole text is selected when the box gets the focus.
class NumberField : public QLineEdit {
public:
    NumberField(const QString& objectName, int digits, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
};

} // namespace qdw8
