#pragma once

#include "parameter/para_controls.h"

#include <QDialog>
#include <functional>
#include <optional>
#include <vector>

class QGroupBox;
class QPushButton;
class QVBoxLayout;

namespace qdw8 {

class ParaPages;
struct ParaCommandRow;

/// The parameter window. The user sees and edits the parameters here; the rules are elsewhere.
class frmParameta2 : public QDialog {
public:
    explicit frmParameta2(QWidget* parent = nullptr);
    ~frmParameta2() override;

    /// Loads and shows the window, or brings it to the front as it is. Modal: nothing else can be
    /// used until it is closed.
    void open(bool modal);
    /// Shows fields and commands again.
    void showState();
    /// What is half typed counts.
    void takeTyped();
    /// The stroke calculator, modal; a field that it filled gets the focus.
    void calculateStroke();

    /// Edits that would be lost are asked about first.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Button {
        QPushButton* control;
        const ParaCommandRow* command;
    };

    void makeButtons(QVBoxLayout& column);
    QPushButton* makeButton(const ParaCommandRow& command);
    void run(const std::function<void()>& routine);
    void goToField(std::optional<ParaPlace> wanted);

    ParaPages* pages;
    std::vector<Button> buttons;
    bool locked = false;             ///< a command has the commands of all windows
    bool ran = false;                ///< it is one of this window
    int closings = 0;                ///< so far
    std::optional<ParaPlace> before; ///< where the user was when it began
};

} // namespace qdw8
