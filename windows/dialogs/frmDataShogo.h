#pragma once

#include <QDialog>
#include <cstdint>

namespace qdw8 {

/// Asks what the data on the screen are to be verified with.
class frmDataShogo : public QDialog {
public:
    explicit frmDataShogo(QWidget* parent = nullptr);

    /// 1 a position file, 2 the controller, 0 cancelled or closed.
    std::int16_t DataShogoResult = 0;
};

/// Asks, over the middle of the parent, and waits for the answer.
std::int16_t AskDataShogo(QWidget* parent);

} // namespace qdw8
