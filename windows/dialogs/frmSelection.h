#pragma once

#include "app/screens.h"

#include <QDialog>
#include <cstdint>
#include <vector>

class QRadioButton;

namespace qdw8 {

/// The choice dialog: a question and two or three choices.
class frmSelection : public QDialog {
public:
    explicit frmSelection(const SelectionQuestion& question, QWidget* parent = nullptr);

    /// 0, 1 or 2 by the choice once it has been confirmed, -1 before that and after a cancel.
    std::int16_t SelectResult = kSelectionCancelled;

    void reject() override;

private:
    void confirm();

    std::vector<QRadioButton*> options;
    bool mustAnswer;
};

/// Asks, over the middle of the parent, and waits for the answer.
std::int16_t AskSelection(QWidget* parent, const SelectionQuestion& question);

} // namespace qdw8
