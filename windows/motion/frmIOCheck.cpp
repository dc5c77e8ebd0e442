#include "windows/motion/frmIOCheck.h"

#include "motion/io_check.h"
#include "platform/qt/work_window.h"
#include "windows/controls/icons.h"
#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"
#include "windows/motion/lamp_button.h"
#include "windows/motion/single_shortcuts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <map>
#include <string_view>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 12;
constexpr int kColumnGap = 14;
constexpr int kInset = 3;

constexpr std::int16_t kTitle = 701;
constexpr std::int16_t kStart = 702;
constexpr std::int16_t kClose = 703;
constexpr std::int16_t kStop = 704;
constexpr std::int16_t kIgnore = 705;
constexpr std::int16_t kOn = 3090;
constexpr std::int16_t kOff = 3091;
constexpr std::int16_t kInputs = 3170;
constexpr std::int16_t kOutputs = 3171;

QString White(const IoLamp& lamp) {
    return Named("imgWhiteIcon", lamp.white);
}
QString Coloured(const char* kind, const IoLamp& lamp) {
    return QLatin1String(kind) + QLatin1String(lamp.name);
}

/// A digit is a row, its bits are the columns.
void Place(QGridLayout& grid, QWidget* control, const IoLamp& lamp) {
    grid.addWidget(control, static_cast<int>(lamp.slot % 7), static_cast<int>(lamp.slot / 7));
}

QGroupBox* MakeBox(const char* name, std::int16_t tag, QWidget* parent) {
    auto* box = new QGroupBox(parent);
    box->setObjectName(QLatin1String(name));
    SetNumbers(*box, tag);
    auto* grid = new QGridLayout(box);
    grid->setHorizontalSpacing(kColumnGap);
    grid->setVerticalSpacing(0);
    for (std::size_t row = 0; row < kIoRows; ++row) {
        grid->setColumnStretch(static_cast<int>(row), 1);
    }
    return box;
}

QGridLayout& GridOf(const QGroupBox& box) {
    return static_cast<QGridLayout&>(*box.layout());
}

} // namespace

frmIOCheck::frmIOCheck(QWidget* parent) : QDialog(parent), focus(*this) {
    setObjectName(QStringLiteral("frmIOCheck"));
    SetNumbers(*this, kTitle);
    CountAsWorkWindow(*this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* lamps = new QHBoxLayout;
    lamps->setSpacing(kSpacing);
    lamps->addWidget(makeInputs());
    lamps->addWidget(makeOutputs());
    layout->addLayout(lamps);
    layout->addWidget(makeFoot());
    // The button keeps its width when its caption changes.
    for (const std::int16_t caption : {kStop, kStart}) {
        SetNumbers(*monitor, caption);
        LoadFormResources(*this);
        monitor->setMinimumWidth(qMax(monitor->minimumWidth(), monitor->sizeHint().width()));
    }
    LoadIoCheck();
    showState();
    monitor->setFocus();
    new SingleShortcuts(*this);
}

QGroupBox* frmIOCheck::makeInputs() {
    QGroupBox* box = MakeBox("frameInput", kInputs, this);
    for (std::size_t i = 0; i < kInputLamps.size(); ++i) {
        inputs[i] = makeInput(kInputLamps[i], *box);
    }
    return box;
}

frmIOCheck::InputLamp frmIOCheck::makeInput(const IoLamp& lamp, QGroupBox& box) {
    auto* area = new QWidget(&box);
    auto* layout = new QGridLayout(area);
    layout->setContentsMargins(kInset, kInset, kInset, kInset);
    layout->setHorizontalSpacing(kLampGap);
    InputLamp made{new PictureLabel(IconOf(Drawing::LampWhite), kLampSide, area),
                   new PictureLabel(IconOf(Drawing::LampGreen), kLampSide, area)};
    made.white->setObjectName(White(lamp));
    made.coloured->setObjectName(Coloured("imgInput", lamp));
    layout->addWidget(made.white, 0, 0);
    layout->addWidget(made.coloured, 0, 0);
    layout->addWidget(new QLabel(QLatin1String(lamp.name), area), 0, 1);
    layout->setColumnStretch(1, 1);
    Place(GridOf(box), area, lamp);
    return made;
}

QGroupBox* frmIOCheck::makeOutputs() {
    QGroupBox* box = MakeBox("frameOutput", kOutputs, this);
    std::map<std::pair<std::size_t, std::size_t>, QWidget*> inRows; // as the Tab key goes
    for (std::size_t i = 0; i < kOutputLamps.size(); ++i) {
        const IoLamp& lamp = kOutputLamps[i];
        const bool alarm = std::string_view(lamp.name) == "Alm";
        auto* made = new LampButton(White(lamp), Coloured("imgOutput", lamp),
                                    alarm ? Drawing::LampRed : Drawing::LampGreen,
                                    QLatin1String(lamp.name), box);
        made->setAccessibleName(ResQText(kOutputs) + QLatin1Char(' ') + QLatin1String(lamp.name));
        connect(made, &LampButton::clicked, this, [slot = lamp.slot] { OutputLamp_Click(slot); });
        Place(GridOf(*box), made, lamp);
        outputs[i] = made;
        inRows[{lamp.slot % 7, lamp.slot / 7}] = made;
    }
    QWidget* before = nullptr;
    for (const auto& [place, made] : inRows) {
        if (before != nullptr) {
            setTabOrder(before, made);
        }
        before = made;
    }
    return box;
}

QWidget* frmIOCheck::makeFoot() {
    auto* foot = new QWidget(this);
    auto* layout = new QGridLayout(foot);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(kSpacing);
    ignore = new QCheckBox(foot);
    ignore->setObjectName(QStringLiteral("chkIgnore"));
    SetNumbers(*ignore, kIgnore);
    SetMnemonic(*ignore, 'x');
    connect(ignore, &QCheckBox::clicked, this, chkIgnore_Click);
    text = new QLabel(foot);
    text->setObjectName(QStringLiteral("lblIoState"));
    text->setWordWrap(true);
    text->setTextFormat(Qt::PlainText);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // The longest of the texts takes two lines, and nothing jumps when it comes.
    text->setFixedHeight(2 * text->fontMetrics().lineSpacing() + 2);
    const auto button = [foot, this](const char* name, char letter) {
        auto* made = new QPushButton(foot);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        SetMnemonic(*made, letter);
        return made;
    };
    monitor = button("cmdIoMonitor", 'M');
    connect(monitor, &QPushButton::clicked, this, cmdIoMonitor_Click);
    QPushButton* close = button("cmdIoWinClose", 'C');
    SetNumbers(*close, kClose);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    layout->addWidget(ignore, 0, 0);
    layout->addWidget(monitor, 0, 1);
    layout->addWidget(close, 0, 2);
    layout->addWidget(text, 1, 0, 1, 3);
    layout->setColumnStretch(0, 1);
    return foot;
}

void frmIOCheck::showLamps() {
    const bool shown = IsSet(IoLampsShown);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const bool on = shown && IsSet(IoInputState[kInputLamps[i].slot]);
        inputs[i].coloured->setVisible(on);
        QString name = ResQText(kInputs) + QLatin1Char(' ') + QLatin1String(kInputLamps[i].name);
        if (shown) {
            name += QLatin1String(": ") + ResQText(on ? kOn : kOff);
        }
        for (PictureLabel* picture : {inputs[i].white, inputs[i].coloured}) {
            if (picture->accessibleName() != name) {
                picture->setAccessibleName(name);
            }
        }
    }
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        outputs[i]->light(shown && IsSet(IoOutputState[kOutputLamps[i].slot]));
    }
}

void frmIOCheck::showState() {
    if (!IoCheckOpen()) {
        QDialog::reject();
        return;
    }
    const bool stops = IsSet(IoMonitoring);
    if (stops != showsStop) {
        showsStop = stops;
        SetNumbers(*monitor, stops ? kStop : kStart);
        LoadFormResources(*this);
    }
    focus.setOn(*monitor, IoMonitorEnabled());
    ignore->setChecked(IsSet(chkIgnore));
    focus.setOn(*ignore, IgnoreEnabled());
    const std::int16_t id = IoStateText();
    const QString says = id == 0 ? QString() : ResQText(id);
    if (text->text() != says) {
        text->setText(says);
        text->setAccessibleName(says);
    }
    showLamps();
}

void frmIOCheck::reject() {
    CloseIoCheck();
    showState();
}

} // namespace qdw8
