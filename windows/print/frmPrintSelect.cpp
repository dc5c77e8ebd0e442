#include "windows/print/frmPrintSelect.h"

#include "print/print_select.h"
#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/number_field.h"
#include "windows/controls/texts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cstdint>
#include <string>

namespace qdw8 {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 8;
constexpr int kIndent = 24;
constexpr int kNameCharacters = 30;
constexpr int kRangeDigits = 3;

} // namespace

struct frmPrintSelect::SourceNames {
    const char* check;
    const char* option;
    const char* name;
    const char* browse;
    std::int16_t caption;
    std::int16_t shown;
    void (*pick)();
};

frmPrintSelect::frmPrintSelect(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmPrintSelect"));
    SetNumbers(*this, 1801);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* text = new QLabel(this);
    text->setObjectName(QStringLiteral("lblPrintSelect"));
    SetNumbers(*text, 1802);
    layout->addWidget(text);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kSpacing);
    grid->setColumnMinimumWidth(0, kIndent);
    grid->setColumnMinimumWidth(1, kIndent);
    layout->addLayout(grid);
    positions = makeSource({"chkPrintPosi", "optPrintPosi", "lblPrintPosiName", "cmdSelectPosiFile",
                            1803, 1804, cmdSelectPosiFile_Click},
                           *grid);
    parameters = makeSource({"chkPrintPara", "optPrintPara", "lblPrintParaName",
                             "cmdSelectParaFile", 601, 3268, cmdSelectParaFile_Click},
                            *grid);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    const auto button = [this, buttons](const char* name, std::int16_t tag) {
        auto* made = new QPushButton(this);
        made->setObjectName(QLatin1String(name));
        SetNumbers(*made, tag);
        buttons->addWidget(made);
        return made;
    };
    ok = button("cmdPrintSet", 1403);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] { accept(); });
    // Where no range is left to type, OK is next and not what stands below in the form.
    range[1]->onEnter = [this] {
        (ok->isEnabled() ? ok : range[1]->nextInFocusChain())->setFocus();
    };
    connect(button("cmdPrintCancel", 1404), &QPushButton::clicked, this, &QDialog::reject);
    layout->addLayout(buttons);

    LoadFormResources(*this);
    for (std::size_t i = 0; i < range.size(); ++i) {
        range[i]->setAccessibleName(rangeLabels[i]->text());
    }
    showState();
    positions.check->setFocus();
}

frmPrintSelect::Source frmPrintSelect::makeSource(const SourceNames& names, QGridLayout& grid) {
    Source made;
    made.check = new QCheckBox(this);
    made.check->setObjectName(QLatin1String(names.check));
    SetNumbers(*made.check, names.caption);
    grid.addWidget(made.check, grid.rowCount(), 0, 1, 5);
    connect(made.check, &QCheckBox::toggled, this, [this] { take(); });
    auto* group = new QButtonGroup(this);
    for (const int i : {0, 1}) {
        auto* option = new QRadioButton(this);
        option->setObjectName(Named(names.option, i));
        SetNumbers(*option, i == 0 ? names.shown : std::int16_t{1805});
        group->addButton(option);
        grid.addWidget(option, grid.rowCount(), 1, 1, 4);
        connect(option, &QRadioButton::toggled, this, [this] { take(); });
        made.options[static_cast<std::size_t>(i)] = option;
        if (i == 0 && names.pick == cmdSelectPosiFile_Click) {
            rangeLabel = new QLabel(this);
            rangeLabel->setObjectName(QStringLiteral("lblPrintRange"));
            SetNumbers(*rangeLabel, 1808);
            grid.addWidget(rangeLabel, grid.rowCount(), 2);
            range = {makeRange("txtPrintStartPosi", "lblPrintStartPosi", 1809, false, grid),
                     makeRange("txtPrintEndPosi", "lblPrintEndPosi", 1810, true, grid)};
        }
    }
    const int row = grid.rowCount();
    made.name = new FieldLabel(QLatin1String(names.name), kNameCharacters, this);
    grid.addWidget(made.name, row, 2, 1, 2);
    made.browse = new QPushButton(this);
    made.browse->setObjectName(QLatin1String(names.browse));
    SetNumbers(*made.browse, 1807);
    grid.addWidget(made.browse, row, 4);
    connect(made.browse, &QPushButton::clicked, this, [this, pick = names.pick] {
        pick();
        showState();
    });
    return made;
}

NumberField* frmPrintSelect::makeRange(const char* name, const char* labelName, std::int16_t tag,
                                       bool end, QGridLayout& grid) {
    auto* label = new QLabel(this);
    label->setObjectName(QLatin1String(labelName));
    SetNumbers(*label, tag);
    auto* box = new NumberField(QLatin1String(name), kRangeDigits, this);
    label->setBuddy(box);
    rangeLabels[end ? 1 : 0] = label;
    const int row = grid.rowCount() - (end ? 0 : 1);
    grid.addWidget(label, row, 3);
    grid.addWidget(box, row, 4);
    connect(box, &QLineEdit::editingFinished, this, [box, end] {
        box->settle();
        box->setText(QString::fromStdString(LeavePrintRange(end, box->text().toStdString())));
    });
    return box;
}

/// The choices into the data, and the picture after them.
void frmPrintSelect::take() {
    PrintSelect.chkPrintPosi = positions.check->isChecked();
    PrintSelect.chkPrintPara = parameters.check->isChecked();
    PrintSelect.optPrintPosi = positions.options[1]->isChecked() ? 1 : 0;
    PrintSelect.optPrintPara = parameters.options[1]->isChecked() ? 1 : 0;
    showState();
}

void frmPrintSelect::showSource(const Source& source, bool on, int option,
                                const std::string& name) {
    const auto set = [](QAbstractButton* button, bool checked) {
        const QSignalBlocker quiet(button);
        button->setChecked(checked);
    };
    set(source.check, on);
    set(source.options[static_cast<std::size_t>(option)], true);
    for (QRadioButton* each : source.options) {
        each->setEnabled(on);
    }
    source.name->setValue(source.options[1]->text(), QString::fromStdString(name));
    source.name->setEnabled(on && option == 1);
    source.browse->setEnabled(on && option == 1);
}

void frmPrintSelect::showState() {
    showSource(positions, PrintSelect.chkPrintPosi, PrintSelect.optPrintPosi,
               PrintSelect.lblPrintPosiName);
    showSource(parameters, PrintSelect.chkPrintPara, PrintSelect.optPrintPara,
               PrintSelect.lblPrintParaName);
    const bool ranged = PrintSelect.chkPrintPosi && PrintSelect.optPrintPosi == 0;
    rangeLabel->setEnabled(ranged);
    const std::array<std::string, 2> texts{PrintSelect.txtPrintStartPosi,
                                           PrintSelect.txtPrintEndPosi};
    for (std::size_t i = 0; i < range.size(); ++i) {
        range[i]->setText(QString::fromStdString(texts[i]));
        range[i]->setEnabled(ranged);
        rangeLabels[i]->setEnabled(ranged);
    }
    ok->setEnabled(PrintSetEnabled());
}

void frmPrintSelect::accept() {
    for (NumberField* box : range) {
        box->settle();
    }
    PrintSelect.txtPrintStartPosi = range[0]->text().toStdString();
    PrintSelect.txtPrintEndPosi = range[1]->text().toStdString();
    if (cmdPrintSet_Click()) {
        QDialog::accept();
    } else {
        range[0]->setFocus(); // the numbers are to be typed again
    }
}

void ShowPrintSelect(QWidget* parent) {
    frmPrintSelect(parent).exec();
}

} // namespace qdw8
