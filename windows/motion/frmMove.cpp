#include "windows/motion/frmMove.h"

#include "motion/move_list_edit.h"
#include "motion/move_test.h"
#include "platform/qt/work_window.h"
#include "windows/access/tab_keys.h"
#include "windows/controls/beside.h"
#include "windows/controls/icons.h"
#include "windows/controls/key_field.h"
#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"
#include "windows/motion/lamp_button.h"
#include "windows/motion/move_list.h"
#include "windows/motion/number_slider.h"
#include "windows/motion/single_shortcuts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 12;
constexpr int kTextMargin = 3;
constexpr int kTimerDigits = 3;
constexpr int kTimerWidth = 6;   ///< of the field, in digits
constexpr int kReachedWidth = 6; ///< of the number of the position, in digits

enum Text : std::int16_t {
    kTitle = 501,
    kRuns = 502,
    kSelective = 503,
    kContinualMove = 504,
    kGroupMove = 505,
    kReached = 507,
    kOut = 508,
    kMove = 511,
    kPause = 514,
    kStop = 515,
    kRepeat = 516,
    kNoSqMcr = 517,
    k1To15 = 518,
    kEmptyList = 519,
    kTimer = 520,
    kWait = 521,
    kClose = 524,
    kReleaseTip = 525,
    kUnitTip = 526,
    kTimerTip = 527,
    kStart = 530,
    kEnd = 531,
    kMoveWay = 534,
    kHome = 542,
    kGroup = 550,
    kGroupLimits = 560,
    kOn = 3090,
    kOff = 3091,
    kPositionLimits = 3150,
    kPauseTip = 3220,
    kStepTip = 3221,
    kRangeStepTip = 3222,
    kHomeTip = 3223,
};

/// How the list and the range go on.
struct WayRow {
    const char* caption;
    const char* option;
    std::int16_t continual;
    std::int16_t step;
    std::int16_t stepTip;
    const char* repeat;
    const char* noSqMcr;
    const char* timerUse;
    const char* timer;
    void (*choose)(std::size_t index);
    void (*tickRepeat)(bool ticked);
    void (*tickNoSqMcr)(bool ticked);
    void (*tickTimerUse)(bool ticked);
    void (*enterTimer)(const std::string& typed);
};
constexpr std::array<WayRow, 2> kWays{
    {{"lblSelectMode", "optSelectMode", 512, 513, kStepTip, "chkRepeat", "chkNoSqMcr1",
      "chkTimerUse", "txtTimer", optSelectMode_Click, chkRepeat_Click, chkNoSqMcr1_Click,
      chkTimerUse_Click, txtTimer_Enter},
     {"lblMoveWay", "optMoveWay", 535, 536, kRangeStepTip, "chkRepeat2", "chkNoSqMcr2",
      "chkTimerUse2", "txtTimer2", optMoveWay_Click, chkRepeat2_Click, chkNoSqMcr2_Click,
      chkTimerUse2_Click, txtTimer2_Enter}}};

/// The buttons of a tab; a group can't be paused.
struct RunRow {
    const char* move;
    void (*start)();
    const char* pause;
    void (*hold)();
    const char* stop;
    void (*end)();
    std::int16_t stopTip;
};
constexpr std::array<RunRow, kMoveTabs> kRows{
    {{"cmdMove", cmdMove_Click, "cmdTmpStop", cmdTmpStop_Click, "cmdStop", cmdStop_Click, kStopTip},
     {"cmdSelectMove", cmdSelectMove_Click, "cmdTempStop2", cmdTempStop2_Click, "cmdStop2",
      cmdStop2_Click, kStopTip},
     {"cmdGrpMove", cmdGrpMove_Click, nullptr, nullptr, "cmdGrpMoveStop", cmdGrpMoveStop_Click,
      kReleaseTip}}};

struct LampRow {
    const char* white;
    const char* green;
    const char* caption;
    std::int16_t tag;
};
constexpr std::array<LampRow, 2> kLampRows{{{"imgOut1White", "imgOut1Green", "lblOutLamp1", 509},
                                            {"ImgOut2White", "imgOut2Green", "lblOutLamp2", 510}}};

QHBoxLayout* Row(QBoxLayout* in) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    in->addLayout(row);
    return row;
}

template<typename Button>
Button* Add(QLayout& layout, const QString& name, std::int16_t tag, char mnemonic,
            std::int16_t tip = 0) {
    auto* made = new Button;
    made->setObjectName(name);
    SetNumbers(*made, tag, tip);
    SetMnemonic(*made, mnemonic);
    layout.addWidget(made);
    if constexpr (requires { made->setAutoDefault(false); }) {
        made->setAutoDefault(false); // Enter elsewhere starts nothing
    }
    return made;
}

/// A button that starts. It leaves the focus where it is: a number that is refused at the click is
/// to be typed anew.
QPushButton* AddStart(QLayout& layout, const QString& name, std::int16_t tag, char mnemonic,
                      std::int16_t tip = 0) {
    auto* made = Add<QPushButton>(layout, name, tag, mnemonic, tip);
    made->setFocusPolicy(Qt::TabFocus);
    return made;
}

/// Ids of the texts that one label can show.
struct TextRange {
    std::int16_t first;
    std::int16_t last;
};
constexpr TextRange kHomingTexts{3200, 3201};
constexpr TextRange kStateTexts{3202, 3216};
constexpr int kTextLines = 2;

/// The width at which each of the texts has room in `kTextLines` lines.
int WidthFor(const TextRange& texts, const QFontMetrics& metrics) {
    int width = 1;
    for (std::int16_t id = texts.first; id <= texts.last; ++id) {
        const QString text = QString::fromStdString(TextOf({id, kHighestPosition}));
        // A line can be somewhat higher than it is said to be, in a font that stands in for
        // another.
        while (metrics.boundingRect({0, 0, width, 0}, Qt::TextWordWrap, text).height() >=
               (kTextLines + 1) * metrics.lineSpacing()) {
            width += metrics.averageCharWidth();
        }
    }
    return width;
}

/// A text that changes, with room for the longest: nothing jumps when it comes.
QLabel* AddText(QLayout& layout, const QString& name, const TextRange& texts) {
    auto* made = new QLabel;
    made->setObjectName(name);
    made->setWordWrap(true);
    made->setTextFormat(Qt::PlainText);
    made->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const QFontMetrics metrics = made->fontMetrics();
    made->setMinimumWidth(WidthFor(texts, metrics));
    made->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    made->setFixedHeight(kTextLines * metrics.lineSpacing() + 2);
    layout.addWidget(made);
    return made;
}

void Show(QLabel& label, const std::string& status) {
    const QString says = QString::fromStdString(status);
    if (label.text() != says) {
        label.setText(says);
        label.setAccessibleName(says);
    }
}

} // namespace

frmMove::frmMove(QWidget* parent) : QDialog(parent), kept(*this) {
    setObjectName(QStringLiteral("frmMove"));
    SetNumbers(*this, kTitle);
    CountAsWorkWindow(*this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("SSTab1"));
    SetNumbers(*tabs, kRuns);
    tabs->setUsesScrollButtons(false);
    layout->addWidget(tabs);
    makeListPage();
    makeRangePage();
    makeGroupPage();
    makeFoot(*layout);
    AddTabKeys(*tabs);
    LoadFormResources(*this);
    using Tip = std::pair<QPushButton*, std::int16_t>;
    for (const auto& [button, more] :
         {Tip{runs[kList].pause, kPauseTip}, Tip{runs[kRange].pause, kPauseTip},
          Tip{runs[kOfGroup].stop, kGroupStopTip}}) {
        button->setToolTip(button->toolTip() + QLatin1Char('\n') + ResQText(more));
    }
    list->updateGeometry();
    LoadMove();
    showState();
    connect(tabs, &QTabWidget::currentChanged, this, [this](int tab) {
        takeTyped();
        SSTab1_Click(static_cast<std::size_t>(tab));
    });
    list->setFocus();
    new SingleShortcuts(*this);
    PutBesideParent(*this);
}

frmMove::~frmMove() {
    // A field that has the focus tells when it loses it, and in a window that goes it does.
    for (const Way& way : ways) {
        way.timer->disconnect(this);
    }
}

QVBoxLayout* frmMove::addPage(std::int16_t tag, char mnemonic) {
    auto* page = new QWidget;
    page->setObjectName(Named("SSTab1", tabs->count()));
    SetNumbers(*page, tag);
    SetMnemonic(*page, mnemonic);
    tabs->addTab(page, QString());
    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(kSpacing);
    return layout;
}

void frmMove::makeListPage() {
    QVBoxLayout* layout = addPage(kSelective, 'v');
    list = new MoveList(layout->parentWidget());
    layout->addWidget(list);
    QHBoxLayout* fill = Row(layout);
    oneTo15 = Add<QPushButton>(*fill, QStringLiteral("cmdInp1toF"), k1To15, '1');
    connect(oneTo15, &QPushButton::clicked, this, cmdInp1toF_Click);
    clear = Add<QPushButton>(*fill, QStringLiteral("cmdDataClear"), kEmptyList, 'l');
    connect(clear, &QPushButton::clicked, this, cmdDataClear_Click);
    fill->addStretch();
    makeWay(*layout, kList);
    makeRun(*layout, kList);
}

void frmMove::makeRangePage() {
    QVBoxLayout* layout = addPage(kContinualMove, 'u');
    auto* numbers = new QGridLayout;
    layout->addLayout(numbers);
    start = new NumberSlider({"lblStartPosiMoji", "lblStartPosiNo", "sldrStartPosiNo",
                              "updownStartPosiNo", kStart, 'a', kPositionLimits},
                             kHighestPosition, StartPosiNo_Change, *numbers, 0);
    end = new NumberSlider({"lblEndPosiMoji", "lblEndPosiNo", "sldrEndPosiNo", "updownEndPosiNo",
                            kEnd, 'd', kPositionLimits},
                           kHighestPosition, EndPosiNo_Change, *numbers, 1);
    layout->addStretch();
    makeWay(*layout, kRange);
    makeRun(*layout, kRange);
}

void frmMove::makeGroupPage() {
    QVBoxLayout* layout = addPage(kGroupMove, 'G');
    auto* numbers = new QGridLayout;
    layout->addLayout(numbers);
    group = new NumberSlider(
        {"lblGrpNoMoji", "lblGrpNo", "sldrGrpNo", "UpDown2", kGroup, 'N', kGroupLimits},
        kHighestGroup, GrpNo_Change, *numbers, 0);
    layout->addStretch();
    makeRun(*layout, kOfGroup);
}

void frmMove::makeWay(QBoxLayout& page, Tab tab) {
    const WayRow& row = kWays[tab];
    Way& way = ways[tab];
    QHBoxLayout* line = Row(&page);
    auto* caption = new QLabel;
    caption->setObjectName(QLatin1String(row.caption));
    SetNumbers(*caption, kMoveWay);
    line->addWidget(caption);
    const auto option = [&](std::size_t index, std::int16_t tag, char mnemonic, std::int16_t tip) {
        auto* made = Add<QRadioButton>(*line, Named(row.option, index), tag, mnemonic, tip);
        connect(made, &QRadioButton::clicked, this, [&row, index] { row.choose(index); });
        return made;
    };
    way.continual = option(0, row.continual, 'o', 0);
    way.step = option(1, row.step, 'e', row.stepTip);
    line->addSpacing(kSpacing);
    const auto box = [&](const char* name, std::int16_t tag, char mnemonic, void (*tick)(bool),
                         std::int16_t tip = 0) {
        auto* made = Add<QCheckBox>(*line, QLatin1String(name), tag, mnemonic, tip);
        connect(made, &QCheckBox::clicked, this, tick);
        return made;
    };
    way.repeat = box(row.repeat, kRepeat, 'R', row.tickRepeat);
    way.noSqMcr = box(row.noSqMcr, kNoSqMcr, 'k', row.tickNoSqMcr);
    way.timerUse = box(row.timerUse, kTimer, 'T', row.tickTimerUse, kTimerTip);
    way.timer = new KeyField(QLatin1String(row.timer), kTimerDigits, IsDigit, nullptr);
    way.timer->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kTimerWidth);
    SetNumbers(*way.timer, kWait, kUnitTip);
    connect(way.timer, &KeyField::editingFinished, this, [this] { takeTyped(); });
    way.timer->onSpoiled = [this, &field = *way.timer] {
        field.setModified(false);
        showState(); // no empty text, which would mean no wait
        field.selectAll();
    };
    way.timer->onEnter = [this] { takeTyped(); };
    auto* wait = new QLabel;
    wait->setObjectName(QLatin1String("lbl") + QLatin1String(row.timer));
    SetNumbers(*wait, kWait);
    wait->setBuddy(way.timer);
    line->addWidget(wait);
    line->addWidget(way.timer);
    line->addStretch();
}

void frmMove::makeRun(QBoxLayout& page, Tab tab) {
    const RunRow& row = kRows[tab];
    Run& run = runs[tab];
    QHBoxLayout* line = Row(&page);
    const auto button = [&](const char* name, std::int16_t tag, char mnemonic, void (*routine)(),
                            std::int16_t tip) {
        auto* made = Add<QPushButton>(*line, QLatin1String(name), tag, mnemonic, tip);
        connect(made, &QPushButton::clicked, this, [this, routine] {
            takeTyped();
            routine();
        });
        return made;
    };
    run.move = AddStart(*line, QLatin1String(row.move), kMove, 'M');
    connect(run.move, &QPushButton::clicked, this,
            [this, &row] { mayStart() ? row.start() : void(); });
    if (row.pause != nullptr) {
        run.pause = button(row.pause, kPause, 'P', row.hold, kStopTip);
    }
    run.stop = button(row.stop, kStop, 'S', row.end, row.stopTip);
    run.homing = AddText(*line, Named("lblHoming", static_cast<int>(tab)), kHomingTexts);
    line->setStretchFactor(run.homing, 1);
}

void frmMove::makeFoot(QBoxLayout& layout) {
    QHBoxLayout* line = Row(&layout);
    home = AddStart(*line, QStringLiteral("cmdHome"), kHome, 'H', kHomeTip);
    connect(home, &QPushButton::clicked, this, [this] { mayStart() ? cmdHome_Click() : void(); });
    line->addStretch();
    auto* out = new QLabel;
    out->setObjectName(QStringLiteral("lblOut"));
    SetNumbers(*out, kOut);
    line->addWidget(out);
    for (std::size_t i = 0; i < lamps.size(); ++i) {
        const LampRow& row = kLampRows[i];
        Lamp& lamp = lamps[i];
        auto* place = new QGridLayout;
        place->setHorizontalSpacing(kLampGap);
        line->addLayout(place);
        lamp = {new PictureLabel(IconOf(Drawing::LampWhite), kLampSide),
                new PictureLabel(IconOf(Drawing::LampGreen), kLampSide), new QLabel};
        lamp.white->setObjectName(QLatin1String(row.white));
        lamp.green->setObjectName(QLatin1String(row.green));
        lamp.caption->setObjectName(QLatin1String(row.caption));
        SetNumbers(*lamp.caption, row.tag);
        place->addWidget(lamp.white, 0, 0);
        place->addWidget(lamp.green, 0, 0);
        place->addWidget(lamp.caption, 0, 1);
    }
    line->addStretch();
    auto* caption = new QLabel;
    caption->setObjectName(QStringLiteral("lblKanryoiti"));
    SetNumbers(*caption, kReached);
    line->addWidget(caption);
    reached = new FieldLabel(QStringLiteral("lblkanryoNo"), kReachedWidth);
    reached->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    line->addWidget(reached);
    line->addStretch();
    auto* close = Add<QPushButton>(*line, QStringLiteral("cmdMoveWinClose"), kClose, 'C');
    connect(close, &QPushButton::clicked, this, [this] { leave(); });
    text = AddText(layout, QStringLiteral("lblMoveState"), kStateTexts);
    text->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    text->setMargin(kTextMargin);
    text->setFixedHeight(text->height() + 2 * (kTextMargin + text->frameWidth()));
}

/// What is half typed belongs to the window before anything is started, ended or left. False: some
/// of it was refused.
bool frmMove::takeTyped() {
    bool taken = list->takeTyped();
    for (NumberSlider* number : {start, end, group}) {
        taken = number->takeTyped() && taken;
    }
    for (std::size_t i = 0; i < ways.size(); ++i) {
        KeyField& field = *ways[i].timer;
        const bool spoiled = field.settle();
        taken = taken && !spoiled;
        if (field.isModified()) {
            field.setModified(false);
            kWays[i].enterTimer(field.text().toStdString());
            showState(); // one that was refused is the old one again
            if (field.hasFocus()) {
                field.selectAll();
            }
        }
    }
    return taken;
}

/// A click beside which an entry was refused starts nothing: its number isn't the one that the run
/// would take.
bool frmMove::mayStart() {
    const bool entry = list->takeTyped();
    const bool taken = takeTyped() && entry;
    if (!entry) {
        list->typeAgain();
    }
    return taken;
}

void frmMove::showWay(Tab tab, const MoveChoices& choices, bool timerUseOn, bool timerOn) {
    const Way& way = ways[tab];
    way.continual->setChecked(!choices.step);
    way.step->setChecked(choices.step);
    way.repeat->setChecked(choices.repeat);
    way.noSqMcr->setChecked(choices.noSqMcr);
    way.timerUse->setChecked(choices.timerUse);
    kept.setOn(*way.timerUse, timerUseOn);
    const QString wait = QString::fromStdString(choices.timer);
    if (!way.timer->isModified() && way.timer->text() != wait) {
        way.timer->setText(wait);
    }
    kept.setOn(*way.timer, timerOn);
}

void frmMove::showLamp(const Lamp& lamp, bool on) {
    lamp.green->setVisible(on);
    const QString name = ResQText(kOut) + QLatin1Char(' ') + lamp.caption->text() +
                         QLatin1String(": ") + ResQText(on ? kOn : kOff);
    for (PictureLabel* picture : {lamp.white, lamp.green}) {
        if (picture->accessibleName() != name) {
            picture->setAccessibleName(name);
        }
    }
}

void frmMove::showState() {
    const MoveFormData form = MoveForm();
    const MoveFields& fields = form.fields;
    const MoveEnabled& on = form.enabled;
    // First, so that a tab that is locked has no focus to hand on.
    kept.setOn(*list, on.flgdProgram);
    kept.setOn(*oneTo15, on.flgdProgram);
    kept.setOn(*clear, on.flgdProgram);
    showWay(kList, fields.list, on.chkTimerUse, on.txtTimer);
    showWay(kRange, fields.range, on.chkTimerUse2, on.txtTimer2);
    for (const Run& run : runs) {
        kept.setOn(*run.move, on.start);
        Show(*run.homing, TextOf(form.homing));
    }
    kept.setOn(*home, on.start);
    kept.setOn(*runs[kList].pause, on.cmdTmpStop);
    kept.setOn(*runs[kList].stop, on.cmdStop);
    kept.setOn(*runs[kRange].pause, on.cmdTempStop2);
    kept.setOn(*runs[kRange].stop, on.cmdStop2);
    kept.setOn(*runs[kOfGroup].stop, on.cmdGrpMoveStop);
    tabs->setCurrentIndex(static_cast<int>(fields.SSTab1));
    for (std::size_t tab = 0; tab < kMoveTabs; ++tab) {
        tabs->setTabEnabled(static_cast<int>(tab), on.SSTab1[tab]);
    }
    list->showState(form);
    start->showValue(fields.lblStartPosiNo);
    end->showValue(fields.lblEndPosiNo);
    group->showValue(fields.lblGrpNo);
    showLamp(lamps[0], form.out1);
    showLamp(lamps[1], form.out2);
    reached->setValue(ResQText(kReached), QString::fromStdString(form.lblkanryoNo));
    Show(*text, TextOf(form.status, form.place));
}

void frmMove::focusGroupMove() {
    runs[kOfGroup].move->setFocus();
}

void frmMove::leave() {
    UnloadMove();
    QDialog::reject();
}

void frmMove::reject() {
    takeTyped();
    if (MoveMayClose(true)) {
        leave();
    }
}

} // namespace qdw8
