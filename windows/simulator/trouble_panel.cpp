#include "windows/simulator/trouble_panel.h"

#include "windows/simulator/texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <array>
#include <utility>

namespace qdk8 {
namespace {

constexpr int kInset = 6;
constexpr int kShortestList = 50;

/// Class and code of those that a person wants to see; the control input raises any other.
constexpr std::array kAlarms{"06", "07", "0E", "11", "12", "13", "14", "16", "19"};
constexpr std::array kFaults{"deaf",         "silence",  "late=1500", "part=4", "bytes",
                             "noise-inside", "stray",    "echo",      "long",   "short",
                             "twice",        "error=02", "hangup"};
constexpr std::array kRequests{"*",   "0SP", "0JR", "0MV", "0MP", "0MM", "0MG", "0RA",
                               "0RC", "0CM", "0RI", "0RO", "0WO", "0RP", "0WP"};

template<std::size_t count>
QComboBox* MakeList(const std::array<const char*, count>& data, const char* name, QWidget* parent) {
    auto* list = new QComboBox(parent);
    list->setObjectName(name);
    // The longest texts would make the window too wide; the list that opens shows them whole.
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(16);
    for (const char* const item : data) {
        list->addItem(QString(), QVariant(QString(item)));
    }
    return list;
}

QPushButton* MakeButton(const char* name, const char* text, const char* tip, QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    SetText(*button, text);
    SetTip(*button, tip);
    return button;
}

QString WordsOr(const QString& key, const QString& raw) {
    return HasText(key) ? Text(key) : raw;
}

} // namespace

QString AlarmInWords(const QString& reply) {
    const bool resettable = reply[3] == '0';
    const QString code = reply[3] + QString(reply[5]);
    const QString where = reply[4] == '0' ? QString() : Text("axis").arg(reply[4]) + ": ";
    return where + WordsOr("alarm-" + code, reply) + " (" +
           Text(resettable ? "resettable" : "power-cycle") + ")";
}

QString RuleInWords(const QString& rule) {
    const QStringList parts = rule.split(':');
    const QString request = WordsOr("request-" + parts.value(0), parts.value(0));
    const QString fault = parts.mid(2).join(':');
    const QString words = WordsOr("fault-" + fault, fault);
    if (parts.value(1) == "1") {
        return Text("rule-once").arg(request, words);
    }
    return parts.value(1) == "*" ? Text("rule-always").arg(request, words)
                                 : Text("rule-some").arg(request, words, parts.value(1));
}

TroublePanel::TroublePanel(TellSimulator teller, QWidget* parent)
    : QWidget(parent), tell(std::move(teller)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kInset, kInset, kInset, kInset);
    layout->setSpacing(kInset);
    layout->addWidget(makeAlarms());
    layout->addWidget(makeFaults(), 1);
    showTexts();
}

QWidget* TroublePanel::makeAlarms() {
    auto* box = new QGroupBox(this);
    SetText(*box, "alarms");
    alarm = MakeList(kAlarms, "alarm", box);
    SetName(*alarm, "which-alarm");
    raise = MakeButton("raise", "raise", "raise-tip", box);
    clear = MakeButton("clear", "clear", "clear-tip", box);
    homing = new QCheckBox(box);
    homing->setObjectName("homingFails");
    SetText(*homing, "homing-fails");
    SetTip(*homing, "homing-fails-tip");
    connect(raise, &QPushButton::clicked, this,
            [this] { tell("alarm " + alarm->currentData().toString()); });
    connect(clear, &QPushButton::clicked, this, [this] { tell("alarm clear"); });
    connect(homing, &QCheckBox::clicked, this,
            [this](bool fails) { tell(fails ? "homing fails" : "homing works"); });
    auto* grid = new QGridLayout(box);
    grid->addWidget(alarm, 0, 0);
    grid->addWidget(raise, 0, 1);
    grid->addWidget(clear, 0, 2);
    grid->addWidget(homing, 1, 0, 1, 3);
    grid->setColumnStretch(0, 1);
    return box;
}

QWidget* TroublePanel::makeFaultChoice(QWidget* parent) {
    auto* choice = new QWidget(parent);
    fault = MakeList(kFaults, "fault", choice);
    request = MakeList(kRequests, "request", choice);
    auto* grid = new QGridLayout(choice);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const auto& [choices, key] :
         {std::pair(fault, "which-fault"), std::pair(request, "which-request")}) {
        auto* label = new QLabel(choice);
        SetText(*label, key);
        SetName(*choices, key);
        grid->addWidget(label, row, 0);
        grid->addWidget(choices, row++, 1);
    }
    return choice;
}

QWidget* TroublePanel::makeFaults() {
    auto* box = new QGroupBox(this);
    SetText(*box, "faults");
    QWidget* choice = makeFaultChoice(box);
    QPushButton* once = MakeButton("once", "once", "once-tip", box);
    QPushButton* always = MakeButton("always", "always", "always-tip", box);
    list = new QListWidget(box);
    list->setObjectName("faults");
    list->setWordWrap(true);
    list->setMinimumHeight(kShortestList);
    SetName(*list, "standing-faults");
    remove = MakeButton("remove", "remove", "remove-tip", box);
    removeAll = MakeButton("removeAll", "remove-all", "remove-all-tip", box);
    connect(once, &QPushButton::clicked, this, [this] { addFault(true); });
    connect(always, &QPushButton::clicked, this, [this] { addFault(false); });
    connect(remove, &QPushButton::clicked, this, [this] { removeFault(); });
    connect(removeAll, &QPushButton::clicked, this, [this] { tell("fault clear"); });
    connect(new QShortcut(QKeySequence::Delete, list, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, [this] { removeFault(); });
    connect(list, &QListWidget::currentRowChanged, this,
            [this](int row) { remove->setEnabled(row >= 0 && !rules.isEmpty()); });
    auto* layout = new QGridLayout(box);
    layout->addWidget(choice, 0, 0, 1, 2);
    layout->addWidget(once, 1, 0);
    layout->addWidget(always, 1, 1);
    layout->addWidget(list, 2, 0, 1, 2);
    layout->addWidget(remove, 3, 0);
    layout->addWidget(removeAll, 3, 1);
    layout->setRowStretch(2, 1);
    return box;
}

void TroublePanel::addFault(bool once) {
    const QString rule = request->currentData().toString() + (once ? ":1:" : ":*:") +
                         fault->currentData().toString();
    // Of two rules that fit the first counts: the one chosen last shall be the one to see.
    if (rules.contains(rule)) {
        tell("fault " + rule + " off");
    }
    tell("fault " + rule);
}

void TroublePanel::removeFault() {
    const int row = list->currentRow();
    if (row >= 0 && row < rules.size()) {
        tell("fault " + rules[row] + " off");
    }
}

void TroublePanel::showTexts() {
    const auto fill = [](QComboBox& box, const QString& kind) {
        for (int i = 0; i < box.count(); ++i) {
            box.setItemText(i, Text(kind + box.itemData(i).toString()));
            box.setItemData(i, box.itemText(i), Qt::ToolTipRole);
        }
    };
    fill(*alarm, "alarm-");
    fill(*fault, "fault-");
    fill(*request, "request-");
    listFaults();
}

void TroublePanel::listFaults() {
    const int row = list->currentRow();
    list->clear();
    for (const QString& rule : rules) {
        list->addItem(RuleInWords(rule));
    }
    if (rules.isEmpty()) {
        auto* none = new QListWidgetItem(Text("no-faults"), list);
        none->setFlags(Qt::ItemIsEnabled);
    }
    const int last = static_cast<int>(rules.size()) - 1;
    list->setCurrentRow(qBound(qMin(0, last), row, last));
    remove->setEnabled(list->currentRow() >= 0 && !rules.isEmpty());
    removeAll->setEnabled(!rules.isEmpty());
}

void TroublePanel::show(const Look& look) {
    raise->setEnabled(look.powered);
    clear->setEnabled(look.alarm.has_value());
    homing->setChecked(look.homingFails);
    QStringList now;
    for (const std::string& rule : look.faults) {
        now += QString::fromStdString(rule);
    }
    if (now != rules) {
        rules = now;
        listFaults();
    }
}

} // namespace qdk8
