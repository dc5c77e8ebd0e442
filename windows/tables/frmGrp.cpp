#include "windows/tables/frmGrp.h"

#include "tables/groups.h"
#include "windows/controls/document_title.h"
#include "windows/controls/key_field.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/refused_field.h"
#include "windows/controls/texts.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr std::int16_t kTitle = 801;
constexpr int kRowGap = 3;
constexpr int kBlockGap = 20;
constexpr int kBlockRows = 11;
constexpr int kBlockColumns = 4; ///< number, start, end and the gap behind them
constexpr int kFieldDigits = 7;  ///< width of a field

/// Start and end.
constexpr std::array<std::int16_t, kGrpFields> kHeads{802, 803};
constexpr std::array<const char*, kGrpFields> kHeadNames{"lblStartPosi", "lblEndPosi"};
constexpr std::array<const char*, kGrpFields> kFieldNames{"txtGrpStartNo", "txtGrpEndNo"};

} // namespace

frmGrp::frmGrp(QWidget* parent) : QDialog(parent) {
    const TableFrame frame = LayTableWindow(*this, "frmGrp", kTitle);
    body = frame.fields;
    frame.left->addWidget(makePages());
    frame.left->addWidget(makeRows());
    commands = std::make_unique<TableButtons>(
        *this, *frame.right, Groups(), GrpCommands(), "cmdCloseGrpWindow", [this] { takeTyped(); },
        [this](TablePlace place) {
            return rows.at(static_cast<std::size_t>((place.row - 1) % kGrpPageRows))
                .fields.at(static_cast<std::size_t>(place.field));
        });
    LoadFormResources(*this);
    LoadGrp();
    showState();
    moveTo(0, kGrpStart);
}

frmGrp::~frmGrp() {
    // A field that has the focus tells when it loses it, and in a window that goes it does.
    for (const Row& row : rows) {
        for (KeyField* box : row.fields) {
            box->disconnect(this);
        }
    }
}

QWidget* frmGrp::makePages() {
    auto* frame = new QGroupBox(body);
    frame->setObjectName(QStringLiteral("framHyoujiNo"));
    SetNumbers(*frame, 804);
    SetMnemonic(*frame, 'g');
    auto* layout = new QHBoxLayout(frame);
    for (int page = 0; page < kGrpPages; ++page) {
        auto* option = new QRadioButton(frame);
        option->setObjectName(Named("optGrpNo", page));
        option->setText(
            QStringLiteral("%1 - %2").arg(page * kGrpPageRows + 1).arg((page + 1) * kGrpPageRows));
        option->setAccessibleName(option->text());
        layout->addWidget(option);
        connect(option, &QRadioButton::clicked, this, [this, page] { showPage(page); });
        pages.at(static_cast<std::size_t>(page)) = option;
    }
    layout->addStretch();
    return frame;
}

QWidget* frmGrp::makeRows() {
    auto* area = new QWidget(body);
    auto* layout = new QGridLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(kRowGap);
    for (int row = 0; row < kGrpPageRows; ++row) {
        const int block = row / kBlockRows;
        const int column = block * kBlockColumns;
        if (row % kBlockRows == 0) {
            for (std::size_t field = 0; field < kGrpFields; ++field) {
                auto* head = new QLabel(area);
                // The names of the first block are those of the columns.
                head->setObjectName(block == 0 ? QString::fromLatin1(kHeadNames[field])
                                               : Named(kHeadNames[field], block));
                SetNumbers(*head, kHeads[field]);
                layout->addWidget(head, 0, column + 1 + static_cast<int>(field), Qt::AlignHCenter);
            }
            if (block > 0) {
                layout->setColumnMinimumWidth(column - 1, kBlockGap);
            }
        }
        makeRow(row, *layout, 1 + row % kBlockRows, column);
    }
    return area;
}

void frmGrp::makeRow(int row, QGridLayout& layout, int line, int column) {
    Row& made = rows.at(static_cast<std::size_t>(row));
    made.number = new QLabel(layout.parentWidget());
    made.number->setObjectName(Named("lblGrpNo", row));
    made.number->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1String("00")));
    made.number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout.addWidget(made.number, line, column);
    for (int field = 0; field < kGrpFields; ++field) {
        auto* box = new KeyField(Named(kFieldNames.at(static_cast<std::size_t>(field)), row),
                                 kGrpFieldLength, IsDigit, layout.parentWidget());
        box->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kFieldDigits);
        const int next = (row * kGrpFields + field + 1) % (kGrpPageRows * kGrpFields);
        box->onEnter = [this, next] { moveTo(next / kGrpFields, next % kGrpFields); };
        connect(box, &KeyField::editingFinished, this, [this, row, field] { take(row, field); });
        layout.addWidget(box, line, column + 1 + field);
        made.fields.at(static_cast<std::size_t>(field)) = box;
    }
}

void frmGrp::take(int row, int field) {
    KeyField& box =
        *rows.at(static_cast<std::size_t>(row)).fields.at(static_cast<std::size_t>(field));
    box.settle();
    if (box.isModified()) {
        box.setModified(false);
        EditGrp(row, static_cast<GrpField>(field), box.text().toStdString());
    }
}

void frmGrp::takeTyped() {
    for (int row = 0; row < kGrpPageRows; ++row) {
        for (int field = 0; field < kGrpFields; ++field) {
            take(row, field);
        }
    }
}

void frmGrp::showPage(int page) {
    takeTyped(); // while the row still is that of the old page
    ShowGrpPage(page);
    if (auto* box = dynamic_cast<KeyField*>(focusWidget())) {
        box->selectAll();
    }
}

void frmGrp::moveTo(int row, int field) {
    rows.at(static_cast<std::size_t>(row))
        .fields.at(static_cast<std::size_t>(field))
        ->setFocus(Qt::TabFocusReason);
}

void frmGrp::showState() {
    ShowDocumentTitle(*this, Groups().state.name, Groups().state.unsaved, kTitle);
    commands->showState(*body);
    for (std::size_t page = 0; page < pages.size(); ++page) {
        pages[page]->setChecked(static_cast<int>(page) == optGrpNo);
    }
    for (int row = 0; row < kGrpPageRows; ++row) {
        const int group = GroupOfRow(row);
        const GrpRow& held = GrpTable[static_cast<std::size_t>(group)];
        const Row& shown = rows.at(static_cast<std::size_t>(row));
        const QString number = QString::number(group);
        const bool pageTurned = shown.number->text() != number;
        if (pageTurned) {
            shown.number->setText(number);
        }
        for (std::size_t field = 0; field < kGrpFields; ++field) {
            KeyField& box = *shown.fields[field];
            const QString text = QString::number(field == kGrpStart ? held.start : held.end);
            if (!box.isModified() && box.text() != text) {
                box.setText(text);
            }
            if (pageTurned) {
                box.setAccessibleName(ResQText(kTitle) + QLatin1Char(' ') + number +
                                      QLatin1Char(' ') + ResQText(kHeads[field]));
            }
            const std::int16_t reason = ReasonOf(Groups(), group, static_cast<int>(field));
            ShowJudgement(box, reason == 0 ? QString() : ResQText(reason), ResQText(kGrpLimits));
        }
    }
}

void frmGrp::keyPressEvent(QKeyEvent* event) {
    const int step = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (body->isEnabled()) {
            showPage(optGrpNo + step);
        }
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
        for (int row = 0; row < kGrpPageRows; ++row) {
            for (int field = 0; field < kGrpFields; ++field) {
                const int to = row + step;
                if (focusWidget() == rows.at(static_cast<std::size_t>(row))
                                         .fields.at(static_cast<std::size_t>(field)) &&
                    to >= 0 && to < kGrpPageRows) {
                    moveTo(to, field);
                    return;
                }
            }
        }
        return;
    default: QDialog::keyPressEvent(event);
    }
}

void frmGrp::reject() {
    commands->leave([this] { QDialog::reject(); });
}

} // namespace qdw8
