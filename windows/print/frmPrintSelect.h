#pragma once

#include <QDialog>
#include <array>

class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QRadioButton;

namespace qdw8 {

class FieldLabel;
class NumberField;

/// What is to be printed. It shows `PrintSelect`; the rules stand in print/print_select.h.
class frmPrintSelect : public QDialog {
public:
    explicit frmPrintSelect(QWidget* parent = nullptr);

    void accept() override;

private:
    /// One kind of data: on screen or out of a file.
    struct Source {
        QCheckBox* check = nullptr;
        std::array<QRadioButton*, 2> options{};
        FieldLabel* name = nullptr;
        QPushButton* browse = nullptr;
    };
    struct SourceNames;

    Source makeSource(const SourceNames& names, QGridLayout& grid);
    NumberField* makeRange(const char* name, const char* labelName, std::int16_t tag, bool end,
                           QGridLayout& grid);
    void take();
    void showState();
    void showSource(const Source& source, bool on, int option, const std::string& name);

    Source positions;
    Source parameters;
    std::array<NumberField*, 2> range{};
    std::array<QLabel*, 2> rangeLabels{};
    QLabel* rangeLabel = nullptr;
    QPushButton* ok = nullptr;
};

/// Shows it over the middle of the parent and waits until it is left.
void ShowPrintSelect(QWidget* parent);

} // namespace qdw8
