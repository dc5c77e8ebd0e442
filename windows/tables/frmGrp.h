#pragma once

#include "tables/grp_form.h"
#include "windows/tables/table_buttons.h"

#include <QDialog>
#include <array>
#include <memory>

class QGridLayout;
class QLabel;
class QRadioButton;

namespace qdw8 {

class KeyField;

/// The groups, a page of 33 at a time, in three blocks side by side. It shows `GrpTable`; the rules
/// stand in tables/.
class frmGrp : public QDialog {
public:
    explicit frmGrp(QWidget* parent = nullptr);
    ~frmGrp() override;

    /// Looks at the table, the page, the marks and the commands again.
    void showState();
    /// What is typed in a field goes into the table.
    void takeTyped();

    /// By Escape and by the title bar too: asks first where something would be lost.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Row {
        QLabel* number = nullptr;
        std::array<KeyField*, kGrpFields> fields{};
    };

    QWidget* makePages();
    QWidget* makeRows();
    void makeRow(int row, QGridLayout& layout, int line, int column);
    void take(int row, int field);
    void showPage(int page);
    void moveTo(int row, int field);

    QWidget* body = nullptr; ///< all that is locked while a command runs
    std::array<QRadioButton*, kGrpPages> pages{};
    std::array<Row, kGrpPageRows> rows;
    std::unique_ptr<TableButtons> commands;
};

} // namespace qdw8
