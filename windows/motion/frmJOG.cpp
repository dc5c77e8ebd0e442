#include "windows/motion/frmJOG.h"

#include "motion/teach_chart.h"
#include "motion/teach_clicks.h"
#include "platform/qt/work_window.h"
#include "position/posi_table.h"
#include "windows/controls/arrows.h"
#include "windows/controls/beside.h"
#include "windows/controls/icons.h"
#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"
#include "windows/motion/held_button.h"
#include "windows/motion/single_shortcuts.h"
#include "windows/motion/teach_table.h"

#include <QAccessible>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 8;
constexpr int kSpacing = 8;
constexpr int kGap = 4;
constexpr int kPictureSide = 28;
constexpr int kAxisButtonHeight = 40; ///< large enough to be held without looking at it
constexpr int kPositionDigits = 9;
constexpr double kLarger = 1.4; ///< the positions are read from beside the machine
constexpr int kNumberDigits = 5;

enum Text : std::int16_t {
    kTitle = 2201,
    kClose = 2202,
    kStart = 2203,
    kComplete = 2204,
    kTake = 2205,
    kPosition = 2206,
    kOperation = 2207,
    kWays = 2208,        ///< of "JOG"; the other ways follow
    kAxisButtons = 2213, ///< of "AXIS1 +"; the other buttons follow
    kAxisHead = 220,     ///< of AXIS 1
    kSpeed = 225,
    kNoRow = 3231,
};

/// Which of the sign's pictures.
enum Picture : std::size_t { kRing, kTick, kExclamation };
Picture PictureOf(const TeachingForm& form) {
    if (form.stop != StopSign::None) {
        return form.stop == StopSign::NotConfirmed ? kExclamation : kRing;
    }
    return form.state == Teaching::Failed    ? kExclamation
           : form.state == Teaching::Started ? kTick
                                             : kRing;
}

/// Black on a light ground, or white on red, on every palette: it must not be overlooked.
void Paint(QWidget& area, bool alarming) {
    QPalette colours;
    colours.setColor(QPalette::Window,
                     alarming ? QColor(0xB3, 0x12, 0x0C) : QColor(0xF2, 0xF2, 0xF2));
    colours.setColor(QPalette::WindowText, alarming ? Qt::white : Qt::black);
    if (colours.color(QPalette::Window) != area.palette().color(QPalette::Window)) {
        area.setPalette(colours);
    }
}

QVBoxLayout* Column(QWidget* area) {
    auto* layout = new QVBoxLayout(area);
    layout->setSpacing(kSpacing);
    return layout;
}

} // namespace

frmJOG::frmJOG(QWidget* parent) : QDialog(parent), focus(*this) {
    setObjectName(QStringLiteral("frmJOG"));
    SetNumbers(*this, kTitle);
    CountAsWorkWindow(*this);
    LoadJog();
    LoadTeachChart();
    auto* layout = Column(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(makeHead());
    auto* middle = new QHBoxLayout;
    middle->setSpacing(kSpacing);
    middle->addWidget(makeOperation());
    middle->addWidget(makeChart());
    layout->addLayout(middle);
    layout->addWidget(makeFoot());
    LoadFormResources(*this);
    held = new HeldButton({axes.begin(), axes.end()}, *this, {JogPressed, JogReleased});
    showState();
    start->setFocus();
    new SingleShortcuts(*this);
    PutBesideParent(*this);
}

frmJOG::~frmJOG() {
    delete held; // while its buttons are there
}

QWidget* frmJOG::makeSign() {
    auto* frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("frameJogState"));
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    frame->setAutoFillBackground(true);
    auto* layout = new QGridLayout(frame);
    constexpr std::array drawings{Drawing::LampWhite, Drawing::LampGreen, Drawing::LampRed};
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        signPictures[i] = new PictureLabel(IconOf(drawings[i]), kPictureSide, frame);
        layout->addWidget(signPictures[i], 0, 0);
    }
    signText = new QLabel(frame);
    signText->setObjectName(QStringLiteral("lblJogState"));
    signText->setWordWrap(true);
    signText->setTextFormat(Qt::PlainText);
    QFont bold = signText->font();
    bold.setBold(true);
    signText->setFont(bold);
    // The longest of the texts takes two lines, and nothing jumps when it comes.
    signText->setFixedHeight(2 * QFontMetrics(bold).lineSpacing() + 2);
    layout->addWidget(signText, 0, 1);
    layout->setColumnStretch(1, 1);
    sign = frame;
    return frame;
}

/// What Start will do stands beside it.
QLayout* frmJOG::makeHead() {
    auto* layout = new QHBoxLayout;
    layout->setSpacing(kSpacing);
    start = makeButton("cmdJOGST", kStart, 'S', cmdJOGST_Click);
    layout->addWidget(start);
    layout->addWidget(makeSign(), 1);
    return layout;
}

QWidget* frmJOG::makeOperation() {
    auto* box = new QGroupBox(this);
    box->setObjectName(QStringLiteral("frameOperation"));
    SetNumbers(*box, kOperation);
    auto* layout = Column(box);
    layout->addWidget(makeWays());
    layout->addWidget(makeAxes());
    layout->addStretch();
    return box;
}

QWidget* frmJOG::makeWays() {
    auto* area = new QWidget(this);
    auto* layout = new QGridLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    for (std::size_t way = 0; way < ways.size(); ++way) {
        ways[way] = new QRadioButton(area);
        ways[way]->setObjectName(Named("optJOG", way));
        SetNumbers(*ways[way], static_cast<std::int16_t>(kWays + way));
        const auto number = static_cast<int>(way);
        connect(ways[way], &QRadioButton::clicked, this, [number] { optJOG_Click(number); });
        layout->addWidget(ways[way], number, 0);
    }
    auto* caption = new QLabel(area);
    caption->setObjectName(QStringLiteral("lblJogVELMoji"));
    SetNumbers(*caption, kSpeed);
    speed = new FieldLabel(QStringLiteral("lblJogVEL"), kNumberDigits, area);
    speed->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* percent = new QLabel(QStringLiteral("%"), area);
    percent->setObjectName(QStringLiteral("lblPercent"));
    layout->addWidget(caption, 0, 2);
    layout->addWidget(speed, 0, 3);
    layout->addWidget(percent, 0, 4);
    layout->setColumnStretch(1, 1);
    return area;
}

QWidget* frmJOG::makeAxes() {
    auto* area = new QWidget(this);
    auto* layout = new QGridLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGap);
    head = new QLabel(area);
    head->setObjectName(QStringLiteral("lblGenzaitiHyoji"));
    SetNumbers(*head, TheTeachingForm().lblGenzaitiHyoji);
    layout->addWidget(head, 0, 2, Qt::AlignHCenter);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * kLarger);
    for (int axis = 0; axis < kAxes; ++axis) {
        // The left button moves to the left.
        for (const int index : {2 * axis + 1, 2 * axis}) {
            auto* button = new QPushButton(area);
            button->setObjectName(Named("cmdJOG", index));
            SetNumbers(*button, static_cast<std::int16_t>(kAxisButtons + index));
            button->setAutoDefault(false);
            button->setMinimumHeight(kAxisButtonHeight);
            layout->addWidget(button, axis + 1, index % 2 == 1 ? 0 : 1);
            axes[static_cast<std::size_t>(index)] = button;
        }
        auto* position =
            new FieldLabel(QStringLiteral("lblPosi%1").arg(axis + 1), kPositionDigits, area);
        position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        position->setFont(large);
        layout->addWidget(position, axis + 1, 2);
        positions[static_cast<std::size_t>(axis)] = position;
    }
    return area;
}

QWidget* frmJOG::makeChart() {
    auto* box = new QGroupBox(this);
    box->setObjectName(QStringLiteral("frameChart"));
    auto* layout = Column(box);
    auto* row = new QHBoxLayout;
    auto* caption = new QLabel(box);
    caption->setObjectName(QStringLiteral("lblPosiNoMoji"));
    SetNumbers(*caption, kPosition);
    SetMnemonic(*caption, 'N');
    chosenRow = new FieldLabel(QStringLiteral("lblPosiNo"), kNumberDigits, box);
    chosenRow->setAlignment(Qt::AlignCenter);
    rows = new Arrows(QStringLiteral("UpDown1"), GridFirst, GridLast, box);
    SetNumbers(*rows, kPosition);
    caption->setBuddy(rows);
    const auto choose = [this](int position) {
        ChooseTeachRow(position);
        showChart();
    };
    connect(rows, &QSpinBox::valueChanged, this, choose);
    take = makeButton("cmdJOGWrite", kTake, 'G', cmdJOGWrite_Click);
    connect(take, &QPushButton::clicked, this, [this] { showChart(); });
    row->addWidget(caption);
    row->addWidget(chosenRow);
    row->addWidget(rows);
    row->addStretch();
    row->addWidget(take);
    layout->addLayout(row);
    if (lblPosiNo == 0) {
        auto* none = new QLabel(box);
        none->setObjectName(QStringLiteral("lblNoRow"));
        none->setWordWrap(true);
        SetNumbers(*none, kNoRow);
        layout->addWidget(none);
    }
    chart = new TeachTable(choose, box);
    SetNumbers(*chart, kPosition);
    layout->addWidget(chart, 1);
    return box;
}

QWidget* frmJOG::makeFoot() {
    auto* foot = new QWidget(this);
    auto* layout = new QHBoxLayout(foot);
    layout->setContentsMargins(0, 0, 0, 0);
    complete = makeButton("cmdJOGend", kComplete, 'o', cmdJOGend_Click);
    QPushButton* exit = makeButton("cmdJogExit", kClose, 'C', nullptr);
    connect(exit, &QPushButton::clicked, this, &QWidget::close);
    layout->addStretch();
    layout->addWidget(complete);
    layout->addWidget(exit);
    return foot;
}

/// The sign of the stop hides what else there is to say.
void frmJOG::showSign(const TeachingForm& form) {
    const Picture picture = PictureOf(form);
    for (std::size_t i = 0; i < signPictures.size(); ++i) {
        signPictures[i]->setVisible(i == picture);
    }
    Paint(*sign, form.stop == StopSign::NotConfirmed);
    const std::int16_t id = form.stopText != 0 ? form.stopText : form.stateText;
    QString says = id == 0 ? QString() : ResQText(id);
    if (form.homeText != 0) {
        says += QLatin1Char('\n') + ResQText(form.homeText);
    }
    if (says != signText->text()) {
        signText->setText(says);
        signText->setAccessibleName(says);
        QAccessibleEvent told(signText, QAccessible::Alert);
        QAccessible::updateAccessibility(&told);
    }
}

void frmJOG::showChart() {
    const QString number = lblPosiNo == 0 ? QString() : QString::number(lblPosiNo);
    chosenRow->setValue(ResQText(kPosition), number);
    const QSignalBlocker isTold(rows);
    rows->setValue(lblPosiNo);
    chart->refresh();
}

void frmJOG::showState() {
    if (!JogOpen()) {
        QDialog::reject();
        return;
    }
    const TeachingForm form = TheTeachingForm();
    showSign(form);
    for (std::size_t way = 0; way < ways.size(); ++way) {
        ways[way]->setChecked(static_cast<int>(way) == form.optJOG);
    }
    head->setText(ResQText(form.lblGenzaitiHyoji));
    speed->setValue(ResQText(kSpeed), QString::fromStdString(form.lblJogVEL));
    for (std::size_t axis = 0; axis < positions.size(); ++axis) {
        const auto id = static_cast<std::int16_t>(kAxisHead + axis);
        positions[axis]->setValue(ResQText(id), QString::fromStdString(form.lblPosi[axis]));
    }
    for (std::size_t i = 0; i < axes.size(); ++i) {
        focus.setOn(*axes[i], form.cmdJOG[i]);
    }
    focus.setOn(*start, form.cmdJOGST);
    focus.setOn(*complete, form.cmdJOGend);
    focus.setOn(*take, form.cmdJOGWrite && lblPosiNo != 0);
    focus.setOn(*rows, form.flgdJOGPosi && lblPosiNo != 0);
    focus.setOn(*chart, form.flgdJOGPosi && lblPosiNo != 0);
    showChart();
}

void frmJOG::reject() {
    held->release();
    cmdJogExit_Click();
}

QPushButton* frmJOG::makeButton(const char* name, std::int16_t tag, char letter, void (*click)()) {
    auto* button = new QPushButton(this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    SetNumbers(*button, tag);
    SetMnemonic(*button, letter);
    if (click != nullptr) {
        connect(button, &QPushButton::clicked, this, click);
    }
    return button;
}

} // namespace qdw8
