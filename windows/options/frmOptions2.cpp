#include "windows/options/frmOptions2.h"

#include "windows/access/tab_keys.h"
#include "windows/controls/arrows.h"
#include "windows/controls/beside.h"
#include "windows/controls/key_field.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/number_field.h"
#include "windows/controls/texts.h"
#include "windows/options/port_page.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 10;
constexpr int kArrowGap = 2;
constexpr int kIndent = 24;    ///< of what explains a choice, below it
constexpr int kTextWidth = 52; ///< of a page, in digits

QVBoxLayout* LayPage(QWidget& page) {
    auto* layout = new QVBoxLayout(&page);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    return layout;
}

QLabel* Explanation(const char* name, std::int16_t tag, QWidget& page) {
    auto* label = new QLabel(&page);
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    SetNumbers(*label, tag);
    return label;
}

QRadioButton* Choice(const char* name, int index, std::int16_t tag, QWidget& parent) {
    auto* choice = new QRadioButton(&parent);
    choice->setObjectName(Named(name, index));
    SetNumbers(*choice, tag);
    return choice;
}

template<std::size_t count>
void Choose(const std::array<QRadioButton*, count>& choices, int chosen) {
    choices.at(static_cast<std::size_t>(chosen))->setChecked(true);
}

template<std::size_t count> int Chosen(const std::array<QRadioButton*, count>& choices) {
    const auto* const at = std::find_if(choices.begin(), choices.end(),
                                        [](const auto* choice) { return choice->isChecked(); });
    return static_cast<int>(at - choices.begin());
}

} // namespace

frmOptions2::frmOptions2(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmOptions2"));
    SetNumbers(*this, 2501);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("SSTabOption"));
    tabs->setMinimumWidth(tabs->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kTextWidth);
    layout->addWidget(tabs);
    port = new PortPage(tabs);
    addPage("pagePort", 2505, port);
    addPage("pagePosi", 2506, makePosiPage());
    addPage("pageUnit", 2507, makeChoicePage(2520, "optHyojiKirikae", optHyojiKirikae, 2521, 0));
    addPage("pageLanguage", 2508, makeChoicePage(2526, "optLanguege", optLanguege, 2527, 3281));
    addPage("pageTeaching", 2543, makeTeachingPage());
    makeButtons(*layout);
    AddTabKeys(*tabs);
    LoadFormResources(*this);
    for (const auto& [head, choices] : {std::pair{2546, optJogAcc}, std::pair{2547, optJogAcc2}}) {
        for (QRadioButton* choice : choices) {
            choice->setAccessibleName(ResQText(static_cast<std::int16_t>(head)) + QLatin1Char(' ') +
                                      choice->text());
        }
    }
    showForm();
    connect(tabs, &QTabWidget::currentChanged, this, [this](int now) { pageTurned(now); });
    port->txtPortNo->setFocus();
    PutOnCorner(*this);
}

QWidget* frmOptions2::addPage(const char* name, std::int16_t tag, QWidget* made) {
    made->setObjectName(QLatin1String(name));
    SetNumbers(*made, tag);
    tabs->addTab(made, QString());
    return made;
}

QWidget* frmOptions2::makePosiPage() {
    auto* made = new QWidget(tabs);
    auto* layout = LayPage(*made);
    layout->addWidget(Explanation("lblSutiSyori", 2511, *made));
    for (std::size_t way = 0; way < optSutiSyori.size(); ++way) {
        const int index = static_cast<int>(way);
        optSutiSyori[way] =
            Choice("optSutiSyori", index, static_cast<std::int16_t>(2512 + index), *made);
        layout->addWidget(optSutiSyori[way]);
        auto* below = new QHBoxLayout;
        below->addSpacing(kIndent);
        below->addWidget(Explanation(index == 0 ? "lblRaise" : "lblTruncate",
                                     static_cast<std::int16_t>(2514 + index), *made),
                         1);
        layout->addLayout(below);
    }
    layout->addStretch();
    return made;
}

QWidget* frmOptions2::makeChoicePage(std::int16_t head, const char* name, Choices<2>& choices,
                                     std::int16_t firstText, std::int16_t note) {
    auto* made = new QWidget(tabs);
    auto* layout = LayPage(*made);
    auto* frame = new QGroupBox(made);
    frame->setObjectName(QLatin1String("frame") + QLatin1String(name + 3));
    SetNumbers(*frame, head);
    auto* inner = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const int index = static_cast<int>(i);
        choices[i] = Choice(name, index, static_cast<std::int16_t>(firstText + index), *frame);
        inner->addWidget(choices[i]);
    }
    layout->addWidget(frame);
    if (note != 0) {
        layout->addWidget(Explanation("lblLanguageNote", note, *made));
    }
    layout->addStretch();
    return made;
}

QWidget* frmOptions2::makeTeachingPage() {
    auto* made = new QWidget(tabs);
    auto* layout = LayPage(*made);
    layout->addWidget(Explanation("lblTeaching", 2544, *made));
    auto* row = new QHBoxLayout;
    auto* caption = new QLabel(made);
    caption->setObjectName(QStringLiteral("lblJogVel"));
    SetNumbers(*caption, 2545);
    txtJogVel = new NumberField(QStringLiteral("txtJogVel"), kJogVelCharacters, made);
    SetNumbers(*txtJogVel, 2545, 3296);
    caption->setBuddy(txtJogVel);
    upDown = new Arrows(QStringLiteral("UpDown2"), kJogVelLowest, kJogVelHighest, made);
    SetNumbers(*upDown, 2545, 3296);
    connect(txtJogVel, &QLineEdit::textChanged, this, [this](const QString& text) {
        const QSignalBlocker quiet(upDown);
        upDown->setValue(text.toInt());
    });
    connect(upDown, &QSpinBox::valueChanged, this,
            [this](int number) { txtJogVel->setText(QString::number(number)); });
    auto* number = new QHBoxLayout;
    number->setSpacing(kArrowGap);
    number->addWidget(txtJogVel);
    number->addWidget(upDown);
    number->addStretch();
    row->addWidget(caption);
    row->addLayout(number, 1);
    layout->addLayout(row);
    layout->addWidget(makeAcc("optJogAcc", 2546, optJogAcc, made));
    layout->addWidget(makeAcc("optJogAcc2", 2547, optJogAcc2, made));
    layout->addStretch();
    return made;
}

QWidget* frmOptions2::makeAcc(const char* name, std::int16_t tag, Choices<3>& choices,
                              QWidget* parent) {
    auto* frame = new QGroupBox(parent);
    frame->setObjectName(QLatin1String("frame") + QLatin1String(name + 3));
    SetNumbers(*frame, tag);
    auto* row = new QHBoxLayout(frame);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        choices[i] = Choice(name, static_cast<int>(i), 0, *frame);
        choices[i]->setText(QString::number(i + 1));
        row->addWidget(choices[i]);
    }
    row->addStretch();
    return frame;
}

void frmOptions2::makeButtons(QBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    const auto button = [this, row](const char* name, std::int16_t tag, std::int16_t tip) {
        auto* made = new QPushButton(this);
        made->setObjectName(QLatin1String(name));
        SetNumbers(*made, tag, tip);
        row->addWidget(made);
        return made;
    };
    QPushButton* ok = button("cmdOK", 1403, 0);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    for (QPushButton* const close :
         {button("cmdCancel", 1404, 3292), button("cmdApply", 3280, 3292)}) {
        close->setAutoDefault(false);
        connect(close, &QPushButton::clicked, this, &QDialog::reject);
    }
    layout.addLayout(row);
}

void frmOptions2::showForm() {
    const OptionsForm shown = LoadOptions();
    connect(port->txtPortNo, &QLineEdit::textChanged, this,
            [this] { port->showPort(PortOfOptions(form())); });
    port->chkPortOccupy->setChecked(shown.chkPortOccupy);
    Choose(optSutiSyori, shown.optSutiSyori);
    Choose(optHyojiKirikae, shown.optHyojiKirikae);
    Choose(optLanguege, shown.optLanguege);
    txtJogVel->setText(QString::fromStdString(shown.txtJogVel));
    Choose(optJogAcc, shown.optJogAcc);
    Choose(optJogAcc2, shown.optJogAcc2);
    port->txtPortNo->setText(QString::fromStdString(shown.txtPortNo));
}

OptionsForm frmOptions2::form() {
    return {.txtPortNo = port->txtPortNo->text().toStdString(),
            .chkPortOccupy = port->chkPortOccupy->isChecked(),
            .optSutiSyori = Chosen(optSutiSyori),
            .optHyojiKirikae = Chosen(optHyojiKirikae),
            .optLanguege = Chosen(optLanguege),
            .txtJogVel = txtJogVel->text().toStdString(),
            .optJogAcc = Chosen(optJogAcc),
            .optJogAcc2 = Chosen(optJogAcc2)};
}

void frmOptions2::goTo(OptionsTab tab, KeyField& field) {
    page = static_cast<int>(tab);
    const QSignalBlocker quiet(tabs);
    tabs->setCurrentIndex(page);
    field.setFocus();
    field.selectAll();
}

void frmOptions2::pageTurned(int now) {
    const auto left = static_cast<OptionsTab>(page);
    page = now;
    txtJogVel->settle();
    if (left == static_cast<OptionsTab>(now)) {
        return;
    }
    if (left == OptionsTab::Teaching) {
        // It is seen behind the box what the box is about.
        const QSignalBlocker quiet(tabs);
        tabs->setCurrentIndex(static_cast<int>(left));
        if (!MayLeaveOptionsTab(left, form())) {
            goTo(left, *txtJogVel);
            return;
        }
        tabs->setCurrentIndex(now);
    }
}

void frmOptions2::accept() {
    txtJogVel->settle();
    switch (cmdOK_Click(form())) {
    case OptionsOk::Done: QDialog::accept(); break;
    case OptionsOk::PortRefused: goTo(OptionsTab::Port, *port->txtPortNo); break;
    case OptionsOk::SpeedRefused: goTo(OptionsTab::Teaching, *txtJogVel); break;
    }
}

void ShowOptions2(QWidget* parent) {
    frmOptions2(parent).exec();
}

} // namespace qdw8
