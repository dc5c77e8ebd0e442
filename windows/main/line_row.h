#pragma once

#include <QFrame>
#include <array>

class QLabel;

namespace qdw8 {

struct LinePanel;
class FieldLabel;

/// The row `FrameLine`: what is told of the line. The keyboard reaches it, so that it can be heard,
/// and so that F1 opens the page about it.
class LineRow : public QFrame {
public:
    explicit LineRow(QWidget* parent);
    void showLine(const LinePanel& line);

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* caption;
    std::array<QLabel*, 3> signs; ///< one of them is shown
    FieldLabel* port;
    FieldLabel* state;
};

} // namespace qdw8
