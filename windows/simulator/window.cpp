#include "windows/simulator/window.h"

#include "windows/access/tab_keys.h"
#include "windows/simulator/axes_panel.h"
#include "windows/simulator/lamp.h"
#include "windows/simulator/signals_panel.h"
#include "windows/simulator/texts.h"
#include "windows/simulator/trouble_panel.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace qdk8 {
namespace {

constexpr int kWhileMoving = 33; ///< ms between two pictures
constexpr int kAtRest = 100;
constexpr int kSpacing = 5;
constexpr QSize kSize{430, 690};
constexpr QSize kFrameAround{10, 40};

QCheckBox* MakeSwitch(const char* name, const char* tip, QWidget* parent) {
    auto* made = new QCheckBox(parent);
    made->setObjectName(name);
    SetText(*made, name);
    SetTip(*made, tip);
    return made;
}

} // namespace

Window::Window(Front& theFront) : front(theFront) {
    setObjectName("simulator");
    SetText(*this, "title");
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(kSpacing);
    layout->addWidget(makeHead());
    alarm = new Lamp({}, true, this);
    alarm->setObjectName("alarmLamp");
    alarm->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->addWidget(alarm);
    axes = new AxesPanel(this);
    layout->addWidget(axes);
    layout->addWidget(makeTabs(), 1);
    line = new QLabel(this);
    line->setObjectName("line");
    line->setTextFormat(Qt::PlainText);
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->addWidget(line);
    connect(new QShortcut(QKeySequence("Ctrl+Q"), this), &QShortcut::activated, this,
            &QWidget::close);
    connect(&timer, &QTimer::timeout, this, [this] { lookAgain(); });
    timer.start(kAtRest);
    chooseLanguage(ChosenLanguage() == Language::Japanese ? 1 : 0);
}

QWidget* Window::makeHead() {
    auto* head = new QWidget(this);
    power = MakeSwitch("power", "power-tip", head);
    cable = MakeSwitch("cable", "cable-tip", head);
    language = new QComboBox(head);
    language->setObjectName("language");
    SetName(*language, "language-tip");
    SetTip(*language, "language-tip");
    language->addItem(TextIn(Language::English, "language-name"));
    language->addItem(TextIn(Language::Japanese, "language-name"));
    connect(power, &QCheckBox::clicked, this,
            [this](bool on) { tell(on ? "power on" : "power off"); });
    connect(cable, &QCheckBox::clicked, this, [this](bool in) { tell(in ? "plug" : "hangup"); });
    connect(language, &QComboBox::currentIndexChanged, this, &Window::chooseLanguage);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(power);
    layout->addWidget(cable);
    layout->addStretch(1);
    layout->addWidget(language);
    return head;
}

/// On a small screen the page is scrolled; the axes above stay in sight.
QWidget* Window::makePage(QWidget* panel, const char* name) {
    auto* page = new QScrollArea(this);
    page->setObjectName(name);
    page->setFrameShape(QFrame::NoFrame);
    page->setFocusPolicy(Qt::NoFocus); // it follows the control that has the focus
    page->setWidgetResizable(true);
    page->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    page->setWidget(panel);
    page->setMinimumWidth(panel->minimumSizeHint().width());
    return page;
}

QWidget* Window::makeTabs() {
    const auto teller = [this](const QString& order) { tell(order); };
    tabs = new QTabWidget(this);
    signalsPanel = new SignalsPanel(teller, tabs);
    trouble = new TroublePanel(teller, tabs);
    tabs->addTab(makePage(signalsPanel, "io"), {});
    tabs->addTab(makePage(trouble, "trouble"), {});
    qdw8::AddTabKeys(*tabs);
    return tabs;
}

void Window::chooseLanguage(int index) {
    const QSignalBlocker quiet(language);
    language->setCurrentIndex(index);
    ChooseLanguage(index == 1 ? Language::Japanese : Language::English);
    ShowTexts(*this);
    tabs->setTabText(0, Text("io"));
    tabs->setTabText(1, Text("alarms-faults"));
    trouble->showTexts();
    look = LookAt(front);
    showLook();
}

void Window::tell(const QString& order) {
    const std::string problem = GiveOrder(front, order.toStdString());
    if (!problem.empty()) {
        QMessageBox::warning(this, windowTitle(), QString::fromStdString(problem));
    }
    look = LookAt(front);
    showLook();
}

void Window::lookAgain() {
    if (!isVisible() || isMinimized()) {
        return;
    }
    Look now = LookAt(front);
    const auto moves = [](const AxisLook& axis) { return axis.moves; };
    const bool moving = std::any_of(now.axes.begin(), now.axes.end(), moves);
    timer.setInterval(moving ? kWhileMoving : kAtRest);
    if (now != look) {
        look = std::move(now);
        showLook();
    }
}

void Window::showLook() {
    power->setChecked(look.powered);
    cable->setChecked(look.plugged);
    const bool alarmed = look.powered && look.alarm.has_value();
    alarm->light(alarmed);
    alarm->setCaption(!look.powered ? Text("dark")
                      : alarmed     ? AlarmInWords(QString::fromStdString(*look.alarm))
                                    : Text("no-alarm"));
    alarm->setToolTip(alarmed ? "<qt>" + alarm->text().toHtmlEscaped() + "</qt>" : QString());
    axes->show(look);
    signalsPanel->show(look);
    trouble->show(look);
    const QString place = QString::fromStdString(look.place);
    const QString request = QString::fromStdString(look.request);
    line->setText(!look.plugged       ? Text("unplugged")
                  : request.isEmpty() ? Text("line").arg(place)
                                      : Text("line-request").arg(place, request));
}

void Window::showInCorner() {
    const QRect desk = screen()->availableGeometry();
    const QSize size = kSize.expandedTo(minimumSizeHint()).boundedTo(desk.size() - kFrameAround);
    resize(size);
    move(desk.right() + 1 - size.width() - kFrameAround.width(), desk.top());
    show();
}

void Window::leave() {
    ending = true;
    if (QWidget* const box = QApplication::activeModalWidget()) {
        box->close();
    }
    close();
}

void Window::closeEvent(QCloseEvent* event) {
    // Whoever has not been connected yet has nothing to lose.
    if (!ending && !look.request.empty()) {
        QMessageBox box(QMessageBox::Question, windowTitle(), Text("close-question"),
                        QMessageBox::NoButton, this);
        QPushButton* end = box.addButton(Text("end"), QMessageBox::AcceptRole);
        QPushButton* keep = box.addButton(Text("keep"), QMessageBox::RejectRole);
        box.setDefaultButton(keep);
        box.setEscapeButton(keep);
        box.exec();
        if (!ending && box.clickedButton() != end) {
            event->ignore();
            return;
        }
    }
    event->accept();
}

} // namespace qdk8
