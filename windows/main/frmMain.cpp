#include "windows/main/frmMain.h"

#include "platform/qt/work_window.h"
#include "position/flex_grid.h"
#include "position/grid_clipboard.h"
#include "position/grid_editor.h"
#include "position/grid_history.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"
#include "windows/controls/document_title.h"
#include "windows/controls/dropped_files.h"
#include "windows/controls/icons.h"
#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/program_icon.h"
#include "windows/controls/texts.h"
#include "windows/main/go_to_bar.h"
#include "windows/main/line_row.h"

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <filesystem>

namespace qdw8 {
namespace {

using enum Command;

constexpr std::int16_t kTitle = 201;
constexpr int kLampSide = 16;
constexpr int kSpacing = 6;
constexpr int kFrameMargin = 4;
constexpr int kButtonGap = 3;
/// At the least; on the smallest screen, in Japanese, there is no more.
constexpr int kLampGap = 2;

// 12400 by 8250 and 15360 by 10755 twips, at 15 twips a pixel.
constexpr QSize kSmallSize{827, 550};
constexpr QSize kFullSize{1024, 717};
/// Room for what a window manager puts around a window: its frame isn't known before it stands on
/// the screen.
constexpr QSize kFrameAround{10, 40};

} // namespace

frmMain::frmMain(const CommandTable& commands, MainWindowEvents handlers)
    : table(commands), events(std::move(handlers)) {
    setObjectName(QStringLiteral("frmMain"));
    SetNumbers(*this, kTitle);
    setWindowIcon(ProgramIcon());
    CountAsWorkWindow(*this);
    // The menu entry shows and hides the tool bar; a second way would leave its tick behind.
    setContextMenuPolicy(Qt::PreventContextMenu);

    const CommandRoutine routine = [this](Command command) { chosen(command); };
    BuildMenus(*this, controls, table, routine);
    toolBar = BuildToolBar(*this, controls, table, routine);

    const auto moved = [this](int row, int column, int rowSel, int columnSel) {
        if (events.rowColChange) {
            events.rowColChange(row, column, rowSel, columnSel);
            showLimits();
        }
    };
    auto& gridMenu = *findChild<QMenu*>(QStringLiteral("mnuGrid"));
    gridMenu.addSeparator();
    gridMenu.addActions(findChild<QMenu*>(QStringLiteral("mnuEdit"))->actions());
    const auto openMenu = [&gridMenu](QPoint at) {
        ShowUndoCommands();
        gridMenu.popup(at); // it waits for nothing: a command that runs goes on beside it
    };
    grid = new GridView({moved, routine, openMenu}, this);

    auto* middle = new QWidget(this);
    auto* layout = new QVBoxLayout(middle);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, 0);
    layout->setSpacing(kSpacing);
    layout->addWidget(makeTop());
    lineRow = new LineRow(middle);
    layout->addWidget(lineRow);
    layout->addWidget(makeInfoRow());
    layout->addWidget(grid, 1);
    goTo = new GoToBar([this] { focusGrid(); }, middle);
    layout->addWidget(goTo);
    setCentralWidget(middle);
    makeStatusBar();
    setTabOrders();

    showCommands();
    TakeDroppedFiles(
        *this, [this] { return IsEnabled(mnuFileOpen) && events.dropped; },
        [this](const std::vector<std::string>& paths) { events.dropped(paths); });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        clipboardChanged = true;
        lookAtClipboard();
    });
}

QGridLayout* frmMain::addButtons(QGroupBox& frame, Frame which) {
    auto* layout = new QGridLayout;
    layout->setSpacing(kButtonGap);
    layout->setContentsMargins(kFrameMargin, kFrameMargin, kFrameMargin, kFrameMargin);
    BuildButtons(frame, *layout, which, controls, table,
                 [this](Command command) { chosen(command); });
    return layout;
}

QLabel* frmMain::label(QWidget& parent, const char* name, std::int16_t tag) {
    auto* made = new QLabel(&parent);
    made->setObjectName(QString::fromLatin1(name));
    SetNumbers(*made, tag);
    return made;
}

QWidget* frmMain::makeTop() {
    auto* top = new QWidget(this);
    auto* layout = new QHBoxLayout(top);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacing);
    QGroupBox* position = makeFrame("FramePosition", 202);
    position->setLayout(addButtons(*position, Frame::Position));
    layout->addWidget(position);
    QGroupBox* controller = makeFrame("FrameController", 285);
    controller->setLayout(addButtons(*controller, Frame::Controller));
    layout->addWidget(controller);
    layout->addWidget(makeStatusFrame(), 1);
    return top;
}

QGroupBox* frmMain::makeFrame(const char* name, std::int16_t tag) {
    auto* frame = new QGroupBox(this);
    frame->setObjectName(QString::fromLatin1(name));
    SetNumbers(*frame, tag);
    return frame;
}

QGroupBox* frmMain::makeStatusFrame() {
    QGroupBox* frame = makeFrame("FrameOnLine", 211);
    constexpr int kGreen = static_cast<int>(Drawing::LampGreen);
    constexpr int kRed = static_cast<int>(Drawing::LampRed);
    lamps = {makeLamp(*frame, "imgPortGreen", "imgPortLed", kGreen, 218, 322),
             makeLamp(*frame, "imgGreenLedOnline", "imgWhiteOnline", kGreen, 249, 323),
             makeLamp(*frame, "imgHomeGreen", "imgHomeWhite", kGreen, 217, 321),
             makeLamp(*frame, "imgAlarmLed", "imgAlarmWhite", kRed, 214, 0)};
    auto* lampRow = new QHBoxLayout;
    lampRow->setSpacing(kLampGap);
    for (const Lamp& lamp : lamps) {
        auto* place = new QGridLayout;
        place->setSpacing(kLampGap);
        place->addWidget(lamp.white, 0, 0);
        place->addWidget(lamp.coloured, 0, 0);
        place->addWidget(lamp.caption, 0, 1);
        lampRow->addLayout(place);
        lampRow->addStretch(1);
    }
    // On a wide window the lamps stay together.
    lampRow->addStretch(4);

    QLabel* number = label(*frame, "lblNo", 215);
    alarmNo = new FieldLabel(QStringLiteral("lblAlarmNo"), 4, frame);
    alarmNo->setAlignment(Qt::AlignCenter);
    alarmText = new QLabel(frame);
    alarmText->setObjectName(QStringLiteral("lblErrorComment"));
    alarmText->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    alarmText->setMargin(3);
    alarmText->setWordWrap(true);
    alarmText->setTextFormat(Qt::PlainText);
    alarmText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    alarmText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);

    auto* alarm = new QGridLayout;
    alarm->setSpacing(kSpacing);
    alarm->addWidget(number, 0, 0);
    alarm->addWidget(alarmNo, 0, 1);
    alarm->addWidget(alarmText, 0, 2, 2, 1);
    QGridLayout* reset = addButtons(*frame, Frame::OnLine);
    reset->setContentsMargins(0, 0, 0, 0);
    alarm->addLayout(reset, 1, 0, 1, 2);
    alarm->setColumnStretch(2, 1);

    auto* layout = new QVBoxLayout(frame);
    layout->setSpacing(kSpacing);
    layout->setContentsMargins(kFrameMargin, kFrameMargin, kFrameMargin, kFrameMargin);
    layout->addLayout(lampRow);
    layout->addLayout(alarm, 1);
    return frame;
}

frmMain::Lamp frmMain::makeLamp(QWidget& parent, const char* coloured, const char* white,
                                int drawing, std::int16_t tag, std::int16_t toolTipText) {
    const auto picture = [&](const char* name, Drawing which) {
        auto* made = new PictureLabel(IconOf(which), kLampSide, &parent);
        made->setObjectName(QString::fromLatin1(name));
        SetNumbers(*made, 0, toolTipText);
        return made;
    };
    Lamp lamp;
    lamp.white = picture(white, Drawing::LampWhite);
    lamp.coloured = picture(coloured, static_cast<Drawing>(drawing));
    lamp.coloured->hide();
    lamp.caption = label(parent, (QByteArray("lbl") + white).constData(), tag);
    SetNumbers(*lamp.caption, 0, toolTipText);
    return lamp;
}

QWidget* frmMain::makeInfoRow() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacing);
    layout->addWidget(label(*row, "lblFileNameMoji", 212));
    fileName = new FieldLabel(QStringLiteral("lblFileName"), 24, row);
    fileName->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(fileName, 1);
    layout->addSpacing(kSpacing);
    layout->addWidget(label(*row, "lblActuator", 1317));
    for (std::size_t axis = 0; axis < deviceTypes.size(); ++axis) {
        deviceTypes[axis] = new FieldLabel(QStringLiteral("lblDeviceType(%1)").arg(axis), 15, row);
        layout->addWidget(deviceTypes[axis]);
    }
    return row;
}

void frmMain::makeStatusBar() {
    auto* bar = new QStatusBar(this);
    bar->setObjectName(QStringLiteral("sbStatusBar"));
    setStatusBar(bar);
    constexpr std::array<int, 4> kCharacters{16, 26, 26, 26};
    for (std::size_t panel = 0; panel < statusPanels.size(); ++panel) {
        auto* made = new FieldLabel(QStringLiteral("sbStatusBar(%1)").arg(panel + 1),
                                    kCharacters[panel], bar);
        statusPanels[panel] = made;
        if (panel == 0) {
            bar->addWidget(made, 1);
        } else {
            bar->addPermanentWidget(made);
        }
    }
}

void frmMain::setTabOrders() {
    // The buttons have been made in their order.
    QWidget* before = nullptr;
    for (QPushButton* control : centralWidget()->findChildren<QPushButton*>()) {
        if (before != nullptr) {
            setTabOrder(before, control);
        }
        before = control;
    }
    setTabOrder(before, lineRow);
    setTabOrder(lineRow, grid);
}

void frmMain::loadResources() {
    LoadFormResources(*this);
    // The menu entries' texts without their marks, "ToolBar(&T)".
    toolBar->setAccessibleName(ResQText(271).section(QLatin1Char('('), 0, 0));
    statusBar()->setAccessibleName(ResQText(272).section(QLatin1Char('('), 0, 0));
    grid->loadResources();
    findChild<QMenu*>(QStringLiteral("mnuGrid"))->setAccessibleName(ResQText(202));
    loaded = false;
    showPanel();
}

void frmMain::showSized(bool small) {
    QSize size = small ? kSmallSize : kFullSize;
    if (const QScreen* on = screen()) {
        size = size.boundedTo(on->availableSize() - kFrameAround);
    }
    resize(size);
    show();
}

void frmMain::showLamp(const Lamp& lamp, bool on, const QString& state) {
    lamp.coloured->setVisible(on);
    const QString name = lamp.caption->text() + QLatin1String(": ") + state;
    lamp.coloured->setAccessibleName(name);
    lamp.white->setAccessibleName(name);
}

/// What the document is called can change by itself, and so can whether it is saved.
void frmMain::showTitle() {
    const std::filesystem::path file(PosiFilePath);
    ShowDocumentTitle(*this, PosiFilePath.empty() ? PosiFileName : file.filename().string(),
                      IsSet(PosiDirtyFlag), kTitle);
}

void frmMain::showPanel() {
    showTitle();
    const MainPanel& panel = ThePanel();
    if (loaded && panel == shown) {
        return;
    }
    // What a screen reader says of a lamp.
    const auto onOff = [](bool on) { return ResQText(on ? 3090 : 3091); };
    const QString line = ResQText(panel.imgGreenLedOnline ? 293 : 294);
    showLamp(lamps[0], panel.imgPortGreen, onOff(panel.imgPortGreen));
    showLamp(lamps[1], panel.imgGreenLedOnline, onOff(panel.imgGreenLedOnline));
    showLamp(lamps[2], panel.imgHomeGreen, onOff(panel.imgHomeGreen));
    showLamp(lamps[3], panel.imgAlarmLed, onOff(panel.imgAlarmLed));
    const auto text = [](const std::string& utf8) { return QString::fromStdString(utf8); };
    alarmNo->setValue(ResQText(214), text(panel.lblAlarmNo));
    alarmText->setText(text(panel.lblErrorComment));
    alarmText->setToolTip(text(panel.lblErrorComment));
    lineRow->showLine(panel.line);
    fileName->setValue(ResQText(212), text(panel.lblFileName));
    for (std::size_t axis = 0; axis < deviceTypes.size(); ++axis) {
        deviceTypes[axis]->setValue(ResQText(static_cast<std::int16_t>(220 + axis)),
                                    text(panel.lblDeviceType[axis]));
    }
    statusPanels[0]->setValue({}, line);
    statusPanels[1]->setValue({}, text(panel.scale[0]));
    statusPanels[2]->setValue({}, text(panel.scale[1]));
    grid->refreshHeads();
    shown = panel;
    loaded = true;
}

void frmMain::showCommands() {
    showTitle();
    controls.showStates();
}

void frmMain::showGrid() {
    showTitle();
    grid->refresh();
    showLimits();
}

/// The figures that may be typed into the current cell.
void frmMain::showLimits() {
    const FlexGrid& cells = flgdData();
    const int column = cells.col - 1;
    if (cells.row < kGridHeadRows || column < 0 || column >= kComment || IsOffColumn(column)) {
        statusPanels[3]->setValue({}, {});
        return;
    }
    const PosiLimits limits = TypedLimitsOf(column);
    const int decimals = ColumnOf(column).item == kPosi && IsSet(DispMmFlag) ? 3 : 0;
    const auto figure = [decimals](double limit) { return QString::number(limit, 'f', decimals); };
    statusPanels[3]->setValue({}, QString::fromStdString(GridHead(1, cells.col)) +
                                      QLatin1String(": ") + figure(limits.lowest) +
                                      QLatin1String(" - ") + figure(limits.highest));
}

void frmMain::focusGrid() {
    grid->setFocus(Qt::OtherFocusReason);
}

void frmMain::lookAtClipboard() {
    // While the user works elsewhere, nobody here needs what other programs exchange.
    if (clipboardChanged && isActiveWindow()) {
        clipboardChanged = false;
        ClipboardChanged();
    }
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) {
        lookAtClipboard();
    }
}

bool frmMain::finishInput() {
    return grid->finishInput();
}

void frmMain::chosen(Command command) {
    const auto ticked = [this, command] {
        return controls.actions[static_cast<std::size_t>(command)]->isChecked();
    };
    // What may be used can have changed since the window was last told.
    if (!IsEnabled(command)) {
        return;
    }
    if (command == mnuViewToolBar) {
        toolBar->setVisible(ticked());
    } else if (command == mnuViewStatusBar) {
        statusBar()->setVisible(ticked());
    } else if (command == mnuGridGoTo) {
        // Whatever becomes of the edit: the digits behind the key are no figure for its cell.
        grid->finishInput();
        goTo->open();
    } else if (events.command) {
        events.command(command);
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    // A text that is rejected must not keep the window open for good: the cell keeps its old one.
    if (!grid->finishInput()) {
        CancelEdit();
    }
    if (events.queryUnload && !events.queryUnload()) {
        event->ignore();
        return;
    }
    event->accept();
    if (events.unload) {
        events.unload();
    }
}

} // namespace qdw8
