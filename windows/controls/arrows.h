#pragma once

#include <QSpinBox>

namespace qdw8 {

/// The two arrows of a spin box alone: the number stands beside it. They take the keys Up and Down;
/// every other key goes on to the window.
class Arrows : public QSpinBox {
public:
    Arrows(const QString& objectName, int lowest, int highest, QWidget* parent);
    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace qdw8
