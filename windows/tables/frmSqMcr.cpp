#include "windows/tables/frmSqMcr.h"

#include "tables/macros.h"
#include "windows/access/spoken_name.h"
#include "windows/controls/arrows.h"
#include "windows/controls/document_title.h"
#include "windows/controls/key_field.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/refused_field.h"
#include "windows/controls/texts.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr std::int16_t kTitle = 901;
constexpr int kRowGap = 3;
constexpr int kBlockGap = 20;
constexpr int kBlockSteps = 8;
constexpr int kBlockColumns = 4; ///< step, command, data and the gap behind them
constexpr int kFieldDigits = 7;  ///< width of a data field

struct Head {
    const char* name;
    std::int16_t tag;
};
constexpr std::array kHeads{Head{"lblStepMoji", 914}, Head{"lblMereiMoji", 904},
                            Head{"lblDataMoji", 905}};

} // namespace

frmSqMcr::frmSqMcr(QWidget* parent) : QDialog(parent) {
    const TableFrame frame = LayTableWindow(*this, "frmSqMcr", kTitle);
    body = frame.fields;
    frame.left->addWidget(makeHead());
    frame.left->addWidget(makeSteps());
    frame.left->addStretch();
    commands = std::make_unique<TableButtons>(
        *this, *frame.right, Macros(), SmCommands(), "cmdSqMcrWinClose", [] {},
        [this](TablePlace place) {
            entered = place.field / kSmFields; // what was refused stays as it is
            const Row& row = rows.at(static_cast<std::size_t>(entered));
            return place.field % kSmFields == kSmDataField ? static_cast<QWidget*>(row.data)
                                                           : row.command;
        });
    LoadFormResources(*this);
    LoadSm();
    showState();
    rows[0].command->setFocus();
}

QWidget* frmSqMcr::makeHead() {
    auto* head = new QWidget(body);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* caption = new QLabel(head);
    caption->setObjectName(QStringLiteral("lblSqMacroMoji"));
    SetNumbers(*caption, 902);
    SetMnemonic(*caption, 'N');
    macroNo = new QLabel(head);
    macroNo->setObjectName(QStringLiteral("lblSqMacroNo"));
    macroNo->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    macroNo->setAlignment(Qt::AlignCenter);
    macroNo->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kFieldDigits);
    upDown = new Arrows(QStringLiteral("UpDownSmNo"), 1, kMacros, head);
    SetNumbers(*upDown, 902);
    caption->setBuddy(upDown);
    connect(upDown, &QSpinBox::valueChanged, this, [](int macro) { ShowMacro(macro); });
    layout->addWidget(caption);
    layout->addWidget(macroNo);
    layout->addWidget(upDown);
    layout->addStretch();
    macroNo->setFixedHeight(upDown->sizeHint().height());
    return head;
}

QWidget* frmSqMcr::makeSteps() {
    auto* area = new QWidget(body);
    auto* layout = new QGridLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(kRowGap);
    for (int block = 0; block < kSmSteps / kBlockSteps; ++block) {
        for (std::size_t column = 0; column < kHeads.size(); ++column) {
            auto* head = new QLabel(area);
            head->setObjectName(Named(kHeads[column].name, block));
            SetNumbers(*head, kHeads[column].tag);
            layout->addWidget(head, 0, block * kBlockColumns + static_cast<int>(column),
                              Qt::AlignHCenter);
        }
        layout->setColumnStretch(block * kBlockColumns + 1, 1);
        if (block > 0) {
            layout->setColumnMinimumWidth(block * kBlockColumns - 1, kBlockGap);
        }
    }
    QStringList texts;
    for (const SmCommand& command : kSmCommands) {
        texts << QString::fromLatin1(command.text);
    }
    for (int step = 0; step < kSmSteps; ++step) {
        auto* number = new QLabel(QString::number(step + 1), area);
        number->setObjectName(Named("lblStep", step));
        auto* list = new QComboBox(area);
        list->setObjectName(Named("comboMerei", step));
        list->addItems(texts);
        list->setMaxVisibleItems(static_cast<int>(kSmCommands.size()));
        list->installEventFilter(this);
        connect(list, &QComboBox::activated, this,
                [step](int choice) { ChooseSmCommand(step, choice); });
        auto* field = new KeyField(
            Named("txtSmData", step), 1, [step](char key) { return SmDataKeyGoesIn(step, key); },
            area);
        field->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kFieldDigits);
        field->installEventFilter(this);
        field->onEnter = [this, step] {
            rows.at(static_cast<std::size_t>((step + 1) % kSmSteps))
                .command->setFocus(Qt::TabFocusReason);
        };
        connect(field, &KeyField::textEdited, this,
                [step](const QString& text) { EditSmData(step, text.toStdString()); });
        const int line = 1 + step % kBlockSteps;
        const int column = step / kBlockSteps * kBlockColumns;
        layout->addWidget(number, line, column, Qt::AlignRight | Qt::AlignVCenter);
        layout->addWidget(list, line, column + 1);
        layout->addWidget(field, line, column + 2);
        rows.at(static_cast<std::size_t>(step)) = {list, field};
    }
    return area;
}

void frmSqMcr::turnTo(int macro) {
    if (body->isEnabled()) {
        ShowMacro(macro);
        if (auto* field = dynamic_cast<KeyField*>(focusWidget())) {
            field->selectAll(); // not entered: looking at another macro changes nothing in it
        }
    }
}

void frmSqMcr::showState() {
    ShowDocumentTitle(*this, Macros().state.name, Macros().state.unsaved, kTitle);
    commands->showState(*body);
    const SmForm& form = TheSmForm();
    const QString number = QString::number(form.lblSqMacroNo);
    const bool turned = macroNo->text() != number;
    if (turned) {
        const QSignalBlocker quiet(upDown);
        upDown->setValue(form.lblSqMacroNo);
        macroNo->setText(number);
        macroNo->setAccessibleName(ResQText(902) + QLatin1Char(' ') + number);
    }
    for (int step = 0; step < kSmSteps; ++step) {
        const auto at = static_cast<std::size_t>(step);
        const SmStepShown& shown = form.steps[at];
        const Row& row = rows[at];
        row.command->setCurrentIndex(shown.comboMerei);
        // A command that there isn't is told all the same.
        const SmStep& held = SmTable[static_cast<std::size_t>(form.lblSqMacroNo)][at];
        row.command->setPlaceholderText(QString::number(held.command));
        const QString text = QString::fromStdString(shown.txtSmData);
        if (row.data->text() != text) {
            row.data->setText(text);
        }
        if (turned) {
            const QString place = ResQText(902) + QLatin1Char(' ') + number + QLatin1Char(' ') +
                                  ResQText(914) + QLatin1Char(' ') + QString::number(step + 1) +
                                  QLatin1Char(' ');
            NameControl(*row.command, place + ResQText(904));
            row.data->setAccessibleName(place + ResQText(905));
        }
        const auto judge = [&](QWidget& field, SmField which, std::int16_t limits) {
            const std::int16_t reason =
                ReasonOf(Macros(), form.lblSqMacroNo, step * kSmFields + which);
            ShowJudgement(field, reason == 0 ? QString() : ResQText(reason),
                          limits == 0 ? QString() : ResQText(limits));
        };
        judge(*row.command, kSmCommandField, 0);
        judge(*row.data, kSmDataField, SmDataLimits(step));
    }
}

bool frmSqMcr::eventFilter(QObject* watched, QEvent* event) {
    for (int step = 0; step < kSmSteps; ++step) {
        const Row& row = rows.at(static_cast<std::size_t>(step));
        if (watched == row.data && event->type() == QEvent::FocusIn) {
            // A window that becomes the active one gives its field the focus back, and nobody has
            // entered it; unless it was clicked on before the window was active.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            const bool back =
                reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
            if (!back || entered != step) {
                entered = step;
                EnterSmData(step);
            }
            return false;
        }
        if (watched == row.command && event->type() == QEvent::FocusIn) {
            entered = -1;
            return false;
        }
        if (watched == row.command && event->type() == QEvent::Wheel) {
            event->ignore(); // a turn of the wheel over a list is no choice of a command
            return true;
        }
        if (watched == row.command && event->type() == QEvent::KeyPress) {
            return listKey(step, *static_cast<QKeyEvent*>(event));
        }
    }
    return QDialog::eventFilter(watched, event);
}

/// Keys of a closed list that by themselves would choose the first or the last command, do nothing,
/// or, typed in quick succession, count as one word.
bool frmSqMcr::listKey(int step, QKeyEvent& event) {
    const int digit = event.text().size() == 1 ? event.text().at(0).digitValue() : -1;
    if (digit >= 0 && digit < static_cast<int>(kSmCommands.size())) {
        ChooseSmCommand(step, digit);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: keyPressEvent(&event); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        rows.at(static_cast<std::size_t>(step)).data->setFocus(Qt::TabFocusReason);
        return true;
    default: return false;
    }
}

void frmSqMcr::keyPressEvent(QKeyEvent* event) {
    const int way = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: turnTo(TheSmForm().lblSqMacroNo + way); return;
    case Qt::Key_Up:
    case Qt::Key_Down:
        for (int step = 0; step < kSmSteps; ++step) {
            const int to = step + way;
            if (focusWidget() == rows.at(static_cast<std::size_t>(step)).data && to >= 0 &&
                to < kSmSteps) {
                rows.at(static_cast<std::size_t>(to)).data->setFocus(Qt::TabFocusReason);
                return;
            }
        }
        return;
    default: QDialog::keyPressEvent(event);
    }
}

void frmSqMcr::reject() {
    commands->leave([this] { QDialog::reject(); });
}

} // namespace qdw8
