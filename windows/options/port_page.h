#pragma once

#include <QWidget>
#include <cstdint>

class QCheckBox;
class QLabel;
class QListWidget;

namespace qdw8 {

class KeyField;

/// The tab of the port: the number, what it stands for on this machine, and the serial ports that
/// are there. While it is on the screen it looks again every second: an adapter that is plugged in
/// shows by itself.
class PortPage : public QWidget {
public:
    explicit PortPage(QWidget* parent);

    /// The port that the sentence is about.
    void showPort(std::int16_t portNo);

    KeyField* txtPortNo = nullptr;
    QCheckBox* chkPortOccupy = nullptr;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void look();

    QLabel* sentence = nullptr;
    QListWidget* devices = nullptr;
    std::int16_t shownPort = 0;
    int ticks = 0; ///< the timer that has it look again; 0 none
};

} // namespace qdw8
