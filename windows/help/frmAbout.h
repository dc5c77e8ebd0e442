#pragma once

#include <QDialog>

namespace qdw8 {

/// Name, version and purpose of the program, and what a report of a fault has to tell of the
/// machine. The information stands as it was when the window opened.
class frmAbout : public QDialog {
public:
    explicit frmAbout(QWidget* parent = nullptr);

private:
    QWidget* makeHead();
    QWidget* makeInformation();
    QWidget* makeButtons();
};

/// Modal, over the middle of the parent.
void ShowAbout(QWidget* parent);

} // namespace qdw8
