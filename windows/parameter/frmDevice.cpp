#include "windows/parameter/frmDevice.h"

#include "windows/controls/key_field.h"
#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 10;
constexpr int kFieldCharacters = 10; ///< width of a field, in digits
constexpr std::int16_t kFirstNote = 3100;
constexpr int kNotes = 3;

QLabel* Label(QWidget& parent, const char* name, std::int16_t tag) {
    auto* made = new QLabel(&parent);
    made->setObjectName(QLatin1String(name));
    SetNumbers(*made, tag);
    return made;
}

QPushButton* Button(QWidget& parent, const char* name, std::int16_t tag, char mnemonic) {
    auto* made = new QPushButton(&parent);
    made->setObjectName(QLatin1String(name));
    SetNumbers(*made, tag);
    SetMnemonic(*made, mnemonic);
    return made;
}

} // namespace

frmDevice::frmDevice(QWidget* parent) : QDialog(parent), form(LoadStrokeCalculator()) {
    setObjectName(QStringLiteral("frmDevice"));
    SetNumbers(*this, 1301);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kSpacing);
    grid->setColumnStretch(2, 1);
    layout->addLayout(grid);
    makeFields(*grid);

    auto* axes = new QHBoxLayout;
    layout->addLayout(axes);
    makeOptions(*axes, "optInputSaki", 1309, kAxes, &StrokeForm::optInputSaki);
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        optInputSaki[axis] = findChild<QRadioButton*>(QStringLiteral("optInputSaki(%1)").arg(axis));
    }
    axes->addStretch();
    auto* enter = Button(*this, "cmdInputStroke", 1308, 'I');
    axes->addWidget(enter);
    connect(enter, &QPushButton::clicked, this, [this] { input(); });

    layout->addWidget(Label(*this, "LabelAboutRido", 1304));
    for (int note = 0; note < kNotes; ++note) {
        const auto tag = static_cast<std::int16_t>(kFirstNote + note);
        layout->addWidget(
            Label(*this, QByteArray("lblRido(" + QByteArray::number(note) + ')').constData(), tag));
    }
    LoadFormResources(*this);
    txtStrokeTyo->setAccessibleName(findChild<QLabel*>("lblStrokeTyo")->text());
    txtRido->setAccessibleName(findChild<QLabel*>("lblRido")->text());
    showForm();
}

frmDevice::~frmDevice() {
    // A field that has the focus tells when it is destroyed, and by then the form is gone.
    txtStrokeTyo->disconnect(this);
    txtRido->disconnect(this);
}

void frmDevice::makeFields(QGridLayout& grid) {
    QLabel* stroke = Label(*this, "lblStrokeTyo", 1302);
    txtStrokeTyo = makeField("txtStrokeTyo", StrokeField::txtStrokeTyo, &StrokeForm::txtStrokeTyo,
                             kStrokeFieldLength, 1313);
    QLabel* lead = Label(*this, "lblRido", 1303);
    txtRido =
        makeField("txtRido", StrokeField::txtRido, &StrokeForm::txtRido, kLeadFieldLength, 1314);
    grid.addWidget(stroke, 0, 0);
    grid.addWidget(txtStrokeTyo, 0, 1);
    grid.addWidget(lead, 1, 0);
    grid.addWidget(txtRido, 1, 1);
    auto* types = new QHBoxLayout;
    makeOptions(*types, "optActType", 1318, 2, &StrokeForm::optActType);
    types->addStretch();
    grid.addLayout(types, 2, 0, 1, 3);
    auto* count = Button(*this, "cmdCulStrokePulse", 1306, 'C');
    count->setDefault(true);
    connect(count, &QPushButton::clicked, this, [this] { calculate(); });
    grid.addWidget(count, 3, 2, Qt::AlignRight);
    grid.addWidget(Label(*this, "lblQdStroke", 1305), 3, 0);
    lblStrokePulse = new QLabel(this);
    lblStrokePulse->setObjectName(QStringLiteral("lblStrokePulse"));
    lblStrokePulse->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    lblStrokePulse->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblStrokePulse->setMinimumHeight(txtRido->sizeHint().height());
    grid.addWidget(lblStrokePulse, 3, 1);
}

KeyField* frmDevice::makeField(const char* name, StrokeField field, std::string StrokeForm::*text,
                               std::size_t length, std::int16_t tip) {
    auto* made = new KeyField(QLatin1String(name), static_cast<int>(length), IsDigit, this);
    made->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kFieldCharacters);
    SetNumbers(*made, 0, tip);
    made->onEnter = [this] { calculate(); };
    connect(made, &QLineEdit::textEdited, this,
            [this, text](const QString& typed) { form.*text = typed.toStdString(); });
    connect(made, &QLineEdit::editingFinished, this, [this, field] {
        LeaveStrokeField(form, field);
        showForm();
    });
    return made;
}

void frmDevice::makeOptions(QLayout& layout, const char* name, std::int16_t firstTag,
                            std::size_t count, std::size_t StrokeForm::*chosen) {
    auto* group = new QButtonGroup(this);
    for (std::size_t index = 0; index < count; ++index) {
        auto* option = new QRadioButton(this);
        option->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index));
        SetNumbers(*option, static_cast<std::int16_t>(firstTag + static_cast<int>(index)));
        option->setChecked(form.*chosen == index);
        group->addButton(option);
        layout.addWidget(option);
        connect(option, &QRadioButton::clicked, this,
                [this, chosen, index] { form.*chosen = index; });
    }
}

void frmDevice::calculate() {
    txtStrokeTyo->settle();
    txtRido->settle();
    cmdCulStrokePulse_Click(form);
    showForm();
}

void frmDevice::input() {
    filled = cmdInputStroke_Click(form);
    if (filled) {
        accept();
    }
}

void frmDevice::showForm() {
    txtStrokeTyo->setText(QString::fromStdString(form.txtStrokeTyo));
    txtRido->setText(QString::fromStdString(form.txtRido));
    lblStrokePulse->setText(QString::fromStdString(form.lblStrokePulse));
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        optInputSaki[axis]->setEnabled(form.axisThere[axis]);
    }
}

std::optional<ParaPlace> AskStrokeCalculator(QWidget* parent) {
    frmDevice window(parent);
    window.exec();
    return window.filled;
}

} // namespace qdw8
