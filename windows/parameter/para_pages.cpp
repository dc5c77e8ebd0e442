#include "windows/parameter/para_pages.h"

#include "app/command_states.h"
#include "parameter/para_edit.h"
#include "parameter/para_marks.h"
#include "platform/platform.h"
#include "windows/access/spoken_name.h"
#include "windows/controls/icons.h"
#include "windows/controls/key_field.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/refused_field.h"
#include "windows/controls/texts.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>

namespace qdw8 {
namespace {

using enum ParaControl;

constexpr int kGap = 4;
constexpr int kSpacing = 6;
constexpr int kFieldCharacters = 11; ///< least width of a field, in digits
constexpr int kWideCharacters = 14;  ///< and of one that stands once
constexpr int kActuatorLength = 3;   ///< characters of a size and of a stroke
constexpr int kFirstAxisColumn = 1;  ///< before them the item
constexpr QRgb kGreyColour = qRgb(0xE0, 0xE0, 0xE0);
constexpr QRgb kGreyText = qRgb(0x50, 0x50, 0x50);

struct Page {
    const char* frame;
    std::int16_t caption;
    char mnemonic;
};

constexpr std::array<Page, 5> kPages{{{"framHomePara", 602, 'H'},
                                      {"framAxisPara", 603, 'A'},
                                      {"framPgPara", 604, 'P'},
                                      {"framEtcPara", 605, 'E'},
                                      {"framTokusyuPara", 606, 'S'}}};

/// The items by the words that files, reports and prints call them, in every language.
constexpr std::array<std::string_view, kParaControls> kItems{"1.OFFSET",
                                                             "2.PUSH",
                                                             "3.VEL",
                                                             "4.OFSVEL",
                                                             "5.PUSHVEL",
                                                             "6.SEQ",
                                                             "1.STROKE",
                                                             "2.LEAD",
                                                             "3.PULSE",
                                                             "4.JOG VEL",
                                                             "5.Auto Drive",
                                                             "6.TYPE",
                                                             "7.Actuator",
                                                             "",
                                                             "",
                                                             "",
                                                             "1.FUNCTION",
                                                             "2.ALM",
                                                             "1. HOME OUT",
                                                             "2. ALM CODE",
                                                             "3. GRP ENABLE",
                                                             "4. SM TIMEOUT",
                                                             "5. SM TIMER",
                                                             "1. AXIS",
                                                             "2. AUTO HOME",
                                                             "3. PG TIMER",
                                                             "4. LS TIMER",
                                                             "5. SOFT LIMIT",
                                                             "6. M0 ENABLE",
                                                             "7. STOP/PAUSE",
                                                             "8. ACC/DCC"};

/// The part of the actuator that a list holds; 0 for everything else.
std::int16_t PartOf(ParaControl control) {
    switch (control) {
    case comboActSize: return 1410;
    case comboActSpeed: return 1411;
    case comboActStroke: return 1412;
    default: return 0;
    }
}

QString ItemOf(ParaControl control) {
    // The parts of the actuator stand below its first one.
    const bool part = control >= comboActSize && control <= txtActuator;
    const std::string_view item = kItems[static_cast<std::size_t>(part ? comboActSize : control)];
    return QString::fromLatin1(item.data(), static_cast<qsizetype>(item.size()));
}

QString AxisCaption(std::size_t axis) {
    return ResQText(static_cast<std::int16_t>(220 + axis));
}

std::size_t ElementsOf(const ParaControlRow& row) {
    return row.perAxis() ? kAxes : 1;
}

QWidget* EditOf(QWidget* field) {
    auto* list = qobject_cast<QComboBox*>(field);
    return list != nullptr && list->isEditable() ? list->lineEdit() : field;
}

void ShowText(QLineEdit& field, const std::string& text) {
    const QString wanted = QString::fromStdString(text);
    if (field.text() != wanted) {
        field.setText(wanted);
    }
}

/// An actuator list: its rows, and the text that stands in it, which may be none of them.
void ShowActuatorList(QComboBox& list, ParaControl control, std::size_t axis) {
    const ActuatorRows& offered = ParaActuatorRows[axis];
    const auto& wanted = control == comboActSize    ? offered.sizes
                         : control == comboActSpeed ? offered.speeds
                                                    : offered.strokes;
    const QSignalBlocker quiet(list);
    const auto same = [&list, &wanted] {
        int row = 0;
        return list.count() == static_cast<int>(wanted.size()) &&
               std::all_of(wanted.begin(), wanted.end(), [&](const std::string& text) {
                   return list.itemText(row++).toStdString() == text;
               });
    };
    if (!same()) {
        list.clear();
        for (const std::string& text : wanted) {
            list.addItem(QString::fromStdString(text));
        }
    }
    const QString text = QString::fromStdString(ParaText(control, axis));
    list.setCurrentIndex(list.findText(text));
    if (list.currentText() != text) {
        list.setEditText(text);
    }
}

/// Tabs with a sign for pages with refused fields, as their data say. It stands in the room beside
/// the text: a tab that grew could push another out of the window.
class SignedTabs : public QTabBar {
public:
    explicit SignedTabs(QWidget* parent) : QTabBar(parent) {
        setObjectName(QStringLiteral("qt_tabwidget_tabbar")); // as the toolkit calls its own
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QTabBar::paintEvent(event);
        QPainter painter(this);
        const int room = style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, this) / 2;
        for (int page = 0; page < count(); ++page) {
            if (tabData(page).toBool()) {
                const QRect tab = tabRect(page);
                IconOf(Drawing::LampRed).paint(&painter, tab.x() + 1, tab.y(), room, tab.height());
            }
        }
    }
};

} // namespace

ParaPages::ParaPages(QWidget* parent) : QTabWidget(parent) {
    setObjectName(QStringLiteral("SSTabPrm"));
    setTabBar(new SignedTabs(this));
    // All pages are in sight: the window is made wide enough for them.
    setUsesScrollButtons(false);
    for (int page = 0; page < static_cast<int>(kPages.size()); ++page) {
        makePage(page);
    }
    // The first control of its page, but whoever turns to the page wants the fields.
    connect(this, &QTabWidget::currentChanged, this, [this] {
        for (std::size_t axis = 0; axis < kAxes && cmdCalculate->hasFocus(); ++axis) {
            if (ParaFieldEnabled(txtAxisStroke, axis)) {
                goTo({txtAxisStroke, axis});
            }
        }
    });
}

ParaPages::~ParaPages() {
    // A field that has the focus tells when it loses it, and when it is destroyed it does.
    for (const auto& ofControl : fields) {
        for (const Field& field : ofControl) {
            if (field.widget != nullptr) {
                field.widget->disconnect(this);
                EditOf(field.widget)->disconnect(this);
                EditOf(field.widget)->removeEventFilter(this);
            }
        }
    }
}

void ParaPages::makePage(int page) {
    const Page& made = kPages[static_cast<std::size_t>(page)];
    auto* frame = new QWidget(this);
    frame->setObjectName(QLatin1String(made.frame));
    addTab(frame, QString());
    SetNumbers(*frame, made.caption);
    SetMnemonic(*frame, made.mnemonic);
    auto* layout = new QVBoxLayout(frame);
    layout->setSpacing(kSpacing);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    const bool special = made.caption == 606;
    if (special) {
        auto* box = new QCheckBox(frame);
        box->setObjectName(QStringLiteral("chkTokuParaChange"));
        SetNumbers(*box, 619);
        SetMnemonic(*box, 'C');
        connect(box, &QCheckBox::clicked, this, [this](bool ticked) {
            TickTokuParaChange(ticked);
            showFields();
        });
        chkTokuParaChange = box;
        layout->addWidget(box);
    }
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kSpacing);
    grid->setVerticalSpacing(kGap);
    layout->addLayout(grid);
    layout->addStretch();
    grids.push_back(grid);
    int line = 0;
    const auto rows = ParaControls();
    const bool axes = std::any_of(rows.begin(), rows.end(), [page](const ParaControlRow& row) {
        return row.page == page && row.perAxis();
    });
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const int column = kFirstAxisColumn + static_cast<int>(axis);
        grid->setColumnStretch(column, 1);
        if (axes) {
            auto* head = new QLabel(frame);
            head->setObjectName(Named("lblAxis", axis + kAxes * static_cast<std::size_t>(page)));
            SetNumbers(*head, static_cast<std::int16_t>(220 + static_cast<int>(axis)));
            grid->addWidget(head, 0, column, Qt::AlignHCenter);
        }
    }
    for (const ParaControlRow& row : rows) {
        if (row.page == page) {
            makeRow(row, *grid, ++line);
        }
    }
}

void ParaPages::makeRow(const ParaControlRow& row, QGridLayout& grid, int line) {
    QWidget* frame = widget(row.page);
    const auto index = static_cast<std::size_t>(row.control);
    if (row.control == txtAxisStroke) {
        cmdCalculate = new QPushButton(frame);
        cmdCalculate->setObjectName(QStringLiteral("cmdCalculate"));
        SetNumbers(*cmdCalculate, 1301);
        SetMnemonic(*cmdCalculate, 'l');
        grid.addWidget(cmdCalculate, 0, 0); // above the item that it is for
    }
    items[index] = new QLabel(QString::fromLatin1(kItems[index].data()), frame);
    grid.addWidget(items[index], line, 0);
    if (const std::int16_t part = PartOf(row.control); part != 0) {
        labels[index] = new QLabel(frame);
        labels[index]->setObjectName(QStringLiteral("lbl") + QLatin1String(row.name));
        SetNumbers(*labels[index], part);
        grid.addWidget(labels[index], line, 0, Qt::AlignRight);
    }
    for (std::size_t axis = 0; axis < ElementsOf(row); ++axis) {
        QWidget* made = makeField(row, axis, frame);
        fields[index][axis].widget = made;
        grid.addWidget(made, line, kFirstAxisColumn + static_cast<int>(axis), 1,
                       row.perAxis() ? 1 : 2);
    }
}

QWidget* ParaPages::makeField(const ParaControlRow& row, std::size_t axis, QWidget* parent) {
    const ParaPlace place{row.control, axis};
    const bool text = row.isText() || row.control == txtActuator;
    QWidget* made = text ? makeText(row, place, parent) : makeList(row, place, parent);
    made->setObjectName(row.perAxis() ? Named(row.name, axis) : QLatin1String(row.name));
    EditOf(made)->installEventFilter(this);
    if (EditOf(made) != made) {
        made->installEventFilter(this);
    }
    return made;
}

QWidget* ParaPages::makeText(const ParaControlRow& row, ParaPlace place, QWidget* parent) {
    const auto taken = [place](char key) { return ParaKeyTaken(place.control, key); };
    const std::size_t length = row.isText() ? ParaFieldLength(row.control) : 0;
    auto* made = new KeyField({}, static_cast<int>(length), taken, parent);
    made->setReadOnly(!row.isText());
    made->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) *
                          (row.perAxis() ? kFieldCharacters : kWideCharacters));
    if (!row.isText()) {
        made->setFocusPolicy(Qt::NoFocus);
        return made;
    }
    made->onEnter = [this] { enter(); };
    connect(made, &QLineEdit::textEdited, this, [place](const QString& text) {
        EditParaText(place.control, place.axis, text.toStdString());
    });
    connect(made, &QLineEdit::editingFinished, this,
            [place] { LeaveParaField(place.control, place.axis); });
    return made;
}

QWidget* ParaPages::makeList(const ParaControlRow& row, ParaPlace place, QWidget* parent) {
    auto* made = new QComboBox(parent);
    made->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    // On a small screen a long row may lose its end; four axes side by side come first.
    made->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) *
                          (row.perAxis() ? kFieldCharacters : kWideCharacters));
    if (row.kind == ParaKind::ActuatorList) {
        made->setEditable(true);
        made->setInsertPolicy(QComboBox::NoInsert);
        made->setCompleter(nullptr);
        made->lineEdit()->setMaxLength(row.control == comboActSpeed ? 1 : kActuatorLength);
        const auto take = [this, made, place] { takeActuator(*made, place); };
        connect(made, &QComboBox::activated, this, take);
        connect(made->lineEdit(), &QLineEdit::editingFinished, this, take);
        connect(made->lineEdit(), &QLineEdit::inputRejected, this, [] { ThePlatform().Beep(); });
        return made;
    }
    connect(made, &QComboBox::activated, this,
            [place](int chosen) { ChooseParaRow(place.control, place.axis, chosen); });
    return made;
}

void ParaPages::takeActuator(const QComboBox& list, ParaPlace place) {
    const std::string text = list.currentText().toStdString();
    if (text == ParaText(place.control, place.axis)) {
        return;
    }
    switch (place.control) {
    case comboActSize: ChooseActSize(place.axis, text); break;
    case comboActSpeed: ChooseActSpeed(place.axis, text); break;
    default: ChooseActStroke(place.axis, text); break;
    }
    showFields();
}

void ParaPages::nameControls() {
    for (const ParaControlRow& row : ParaControls()) {
        const auto index = static_cast<std::size_t>(row.control);
        for (std::size_t axis = 0; axis < ElementsOf(row); ++axis) {
            QString name = ItemOf(row.control);
            if (labels[index] != nullptr) {
                name += QLatin1Char(' ') + labels[index]->text();
            }
            if (row.perAxis()) {
                name += QLatin1Char(' ') + AxisCaption(axis);
            }
            QWidget* field = fields[index][axis].widget;
            NameControl(*field, name);
            EditOf(field)->setAccessibleName(name);
            auto* list = qobject_cast<QComboBox*>(field);
            if (list != nullptr && row.kind == ParaKind::List &&
                !std::holds_alternative<std::monostate>(row.field)) {
                for (const ParaListRow& offered : ParaListRows(row.row)) {
                    list->addItem(ResQText(offered.textId));
                }
            }
        }
    }
    // An axis stands at the same place on every page.
    int width = 0;
    for (std::size_t index = 0; index < kParaControls; ++index) {
        const QLabel* part = labels[index];
        width = std::max(width, items[index]->sizeHint().width() +
                                    (part != nullptr ? kSpacing + part->sizeHint().width() : 0));
    }
    for (QGridLayout* grid : grids) {
        grid->setColumnMinimumWidth(0, width);
    }
}

void ParaPages::showFields() {
    std::array<bool, kPages.size()> marked{};
    for (const ParaControlRow& row : ParaControls()) {
        for (std::size_t axis = 0; axis < ElementsOf(row); ++axis) {
            showField(row, axis);
            const Field& field = fields[static_cast<std::size_t>(row.control)][axis];
            bool& ofPage = marked[static_cast<std::size_t>(row.page)];
            ofPage = ofPage || field.look == Look::Marked;
        }
    }
    for (int page = 0; page < count(); ++page) {
        const bool wanted = marked[static_cast<std::size_t>(page)];
        if (tabToolTip(page).isEmpty() == wanted) {
            tabBar()->setTabData(page, wanted);
            tabBar()->update();
            setTabToolTip(page, wanted ? ResQText(3077) : QString());
        }
    }
    auto* box = static_cast<QCheckBox*>(chkTokuParaChange);
    box->setChecked(ParaFields.chkTokuParaChange);
    box->setEnabled(!CommandsTaken());
}

void ParaPages::showField(const ParaControlRow& row, std::size_t axis) {
    Field& field = fields[static_cast<std::size_t>(row.control)][axis];
    if (auto* text = qobject_cast<QLineEdit*>(field.widget)) {
        ShowText(*text, ParaText(row.control, axis));
    } else if (auto* list = qobject_cast<QComboBox*>(field.widget)) {
        if (row.kind == ParaKind::ActuatorList) {
            ShowActuatorList(*list, row.control, axis);
        } else if (!std::holds_alternative<std::monostate>(row.field)) {
            list->setCurrentIndex(ParaSelected(row.control, axis));
        }
    }
    field.widget->setEnabled(ParaFieldEnabled(row.control, axis) ||
                             (row.kind == ParaKind::Shown && !ParaFieldGrey(row.control, axis)));
    const bool marked = ParaMarkOf(row.control, axis) != ParaMark::None;
    showLook(field, marked                             ? Look::Marked
                    : ParaFieldGrey(row.control, axis) ? Look::Grey
                                                       : Look::Normal);
    const QString tip = QString::fromStdString(ParaFieldTip(row.control, axis));
    if (field.widget->toolTip() != tip) {
        field.widget->setToolTip(tip);
        field.widget->setAccessibleDescription(tip);
        EditOf(field.widget)->setAccessibleDescription(tip);
    }
}

void ParaPages::showLook(Field& field, Look look) {
    if (field.look == look) {
        return;
    }
    field.look = look;
    auto* text = qobject_cast<QLineEdit*>(EditOf(field.widget));
    QPalette palette;
    if (look == Look::Normal && text != nullptr && text->isReadOnly()) {
        palette.setColor(QPalette::Base, QApplication::palette().color(QPalette::Window));
    } else if (look == Look::Grey) {
        for (const auto role : {QPalette::Base, QPalette::Button}) {
            palette.setColor(role, QColor(kGreyColour));
        }
        for (const auto role : {QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(role, QColor(kGreyText));
        }
    } else if (look == Look::Marked) {
        ColourRefused(palette);
    }
    field.widget->setPalette(palette);
    ShowRefusedSign(*field.widget, look == Look::Marked);
}

void ParaPages::changeEvent(QEvent* event) {
    QTabWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        for (auto& ofControl : fields) {
            for (Field& field : ofControl) {
                field.look.reset(); // some colours are taken from the scheme
            }
        }
        showFields();
    }
}

void ParaPages::goTo(ParaPlace place) {
    setCurrentIndex(RowOf(place.control).page);
    // A special field opens by the box of its page.
    const bool locked = ParaFieldGrey(place.control, place.axis);
    (locked ? chkTokuParaChange : at(place).widget)->setFocus(Qt::TabFocusReason);
}

std::optional<ParaPlace> ParaPages::firstField(bool marked) const {
    for (const ParaControlRow& row : ParaControls()) {
        for (std::size_t axis = 0; axis < ElementsOf(row); ++axis) {
            if (marked ? ParaMarkOf(row.control, axis) != ParaMark::None
                       : ParaFieldEnabled(row.control, axis)) {
                return ParaPlace{row.control, axis};
            }
        }
    }
    return std::nullopt;
}

std::optional<ParaPlace> ParaPages::lastField() const {
    return placeOf(last);
}

void ParaPages::finishInput() {
    const QWidget* focus = window()->focusWidget();
    const auto place = placeOf(focus);
    if (!place) {
        return;
    }
    if (const auto* list = qobject_cast<const QComboBox*>(at(*place).widget)) {
        if (list->isEditable()) {
            takeActuator(*list, *place);
        }
    } else {
        if (auto* field = qobject_cast<QLineEdit*>(at(*place).widget)) {
            static_cast<KeyField*>(field)->settle();
        }
        LeaveParaField(place->control, place->axis);
    }
}

bool ParaPages::enter() {
    const auto from = placeOf(window()->focusWidget());
    if (!from) {
        return false;
    }
    if (const auto next = NextParaField(*from)) {
        goTo(*next);
    }
    return true;
}

bool ParaPages::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        last = static_cast<QWidget*>(watched);
    } else if (event->type() == QEvent::Wheel) {
        return true; // a value that changes while the pointer passes over it would not be noticed
    }
    return QTabWidget::eventFilter(watched, event);
}

std::optional<ParaPlace> ParaPages::placeOf(const QWidget* widget) const {
    for (const ParaControlRow& row : ParaControls()) {
        for (std::size_t axis = 0; axis < ElementsOf(row); ++axis) {
            QWidget* field = fields[static_cast<std::size_t>(row.control)][axis].widget;
            if (widget != nullptr && (field == widget || EditOf(field) == widget)) {
                return ParaPlace{row.control, axis};
            }
        }
    }
    return std::nullopt;
}

ParaPages::Field& ParaPages::at(ParaPlace place) {
    return fields[static_cast<std::size_t>(place.control)][place.axis];
}

} // namespace qdw8
