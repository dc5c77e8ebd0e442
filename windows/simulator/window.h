#pragma once

#include "simulator/look.h"

#include <QTimer>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QTabWidget;

namespace qdk8 {

class AxesPanel;
class Lamp;
class SignalsPanel;
class TroublePanel;

/// The machine as somebody sees it who stands before it, and everything that such a person can do
/// to it. Shows what `LookAt` gives, and acts through the orders of the control input.
class Window : public QWidget {
public:
    explicit Window(Front& theFront);

    /// In the upper right corner of the screen, which leaves most of it to the program's window.
    void showInCorner();

    /// Shows the machine as it is now; its timer does so several times a second.
    void lookAgain();

    /// The simulator has ended: closes without a question.
    void leave();

private:
    void closeEvent(QCloseEvent* event) override;
    QWidget* makeHead();
    QWidget* makeTabs();
    QWidget* makePage(QWidget* panel, const char* name);
    void chooseLanguage(int index);
    void tell(const QString& order);
    void showLook();

    Front& front;
    Look look;
    QTimer timer;
    QCheckBox* power = nullptr;
    QCheckBox* cable = nullptr;
    QComboBox* language = nullptr;
    Lamp* alarm = nullptr;
    AxesPanel* axes = nullptr;
    QTabWidget* tabs = nullptr;
    SignalsPanel* signalsPanel = nullptr;
    TroublePanel* trouble = nullptr;
    QLabel* line = nullptr;
    bool ending = false;
};

} // namespace qdk8
