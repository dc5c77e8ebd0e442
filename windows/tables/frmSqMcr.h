#pragma once

#include "tables/sm_form.h"
#include "windows/tables/table_buttons.h"

#include <QDialog>
#include <array>
#include <memory>

class QComboBox;
class QLabel;
class QSpinBox;

namespace qdw8 {

class KeyField;

/// One sequence macro, its 16 steps in two blocks side by side. It shows `TheSmForm()`; the rules
/// stand in tables/.
class frmSqMcr : public QDialog {
public:
    explicit frmSqMcr(QWidget* parent = nullptr);

    /// Looks at the macro, the marks and the commands again.
    void showState();

    /// By Escape and by the title bar too: asks first where something would be lost.
    void reject() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Row {
        QComboBox* command = nullptr;
        KeyField* data = nullptr;
    };

    QWidget* makeHead();
    QWidget* makeSteps();
    void turnTo(int macro);
    bool listKey(int step, QKeyEvent& event);

    QWidget* body = nullptr; ///< all that is locked while a command runs
    QLabel* macroNo = nullptr;
    QSpinBox* upDown = nullptr;
    std::array<Row, kSmSteps> rows;
    std::unique_ptr<TableButtons> commands;
    int entered = -1; ///< the step whose data field the user is in
};

} // namespace qdw8
