#include "windows/device/device_panels.h"

#include "platform/platform.h"
#include "windows/access/spoken_name.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace qdw8 {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 10;
constexpr int kGap = 6;
constexpr int kListCharacters = 5; ///< width of a list, in digits

/// A control that is hidden keeps its place: nothing else jumps when an axis is switched.
void KeepPlace(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}

QStringList RowsOf(const QComboBox& list) {
    QStringList rows;
    for (int row = 0; row < list.count(); ++row) {
        rows << list.itemText(row);
    }
    return rows;
}

void ShowList(QComboBox& list, const FormList& shown) {
    const QSignalBlocker quiet(list);
    QStringList rows;
    for (const std::string& row : shown.rows) {
        rows << QString::fromStdString(row);
    }
    if (rows == RowsOf(list) && list.currentText().toStdString() == shown.text) {
        return;
    }
    list.clear();
    list.addItems(rows);
    list.setCurrentIndex(static_cast<int>(rows.indexOf(QString::fromStdString(shown.text))));
    list.setEditText(QString::fromStdString(shown.text));
}

void ShowBox(QCheckBox& box, const FormBox& shown) {
    box.setChecked(shown.checked);
    box.setEnabled(shown.enabled);
    box.setVisible(shown.visible);
}

} // namespace

DevicePanels::DevicePanels(DeviceForm& shown, QWidget* parent) : QWidget(parent), form(shown) {
    setObjectName(QStringLiteral("DevicePanels"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacing);
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        makeAxis(axis);
        layout->addWidget(axes[axis].frame);
    }
    showForm();
}

DevicePanels::~DevicePanels() {
    letGo();
}

void DevicePanels::letGo() {
    // A list that has the focus tells when it loses it, as it does when its window is hidden or
    // destroyed: by then the form is given up, or gone.
    for (const AxisControls& made : axes) {
        for (QComboBox* list :
             {made.comboDeviceSize, made.comboDeviceSpeed, made.comboDeviceStroke}) {
            list->disconnect(this);
            list->lineEdit()->disconnect(this);
        }
    }
}

void DevicePanels::makeAxis(std::size_t axis) {
    constexpr std::int16_t kCaption = 1405;
    AxisControls& made = axes[axis];
    made.frame = new QGroupBox(this);
    made.frame->setObjectName(Named("FrameAxis", axis));
    SetNumbers(*made.frame, static_cast<std::int16_t>(kCaption + static_cast<int>(axis)));
    auto* layout = new QVBoxLayout(made.frame);
    layout->setSpacing(kGap);
    made.chkAxisEnable = makeBox("chkAxisEnable", axis, 1409, made.frame);
    layout->addWidget(made.chkAxisEnable);
    connect(made.chkAxisEnable, &QCheckBox::clicked, this, [this, axis](bool ticked) {
        ChangeAxisEnable(form, axis, ticked);
        showForm();
    });

    made.PictureAxis = new QWidget(made.frame);
    made.PictureAxis->setObjectName(QStringLiteral("PictureAxis%1").arg(axis + 1));
    KeepPlace(*made.PictureAxis);
    layout->addWidget(made.PictureAxis);
    layout->addStretch();
    auto* inner = new QVBoxLayout(made.PictureAxis);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->setSpacing(kGap);
    makeFamilies(axis, *inner);
    makeLists(axis, *inner);
    makeBoxes(axis, *inner);
}

void DevicePanels::makeFamilies(std::size_t axis, QBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    for (int family = 0; family < 2; ++family) {
        auto* option = new QRadioButton(axes[axis].PictureAxis);
        option->setObjectName(QStringLiteral("optQdSelect%1(%2)").arg(axis + 1).arg(family));
        SetNumbers(*option, family == kFamilyQd ? std::int16_t{1415} : std::int16_t{1416});
        axes[axis].optQdSelect.at(static_cast<std::size_t>(family)) = option;
        row->addWidget(option);
        connect(option, &QRadioButton::clicked, this, [this, axis, family] {
            if (form.axes[axis].optQdSelect != family) {
                takeTyped();
                ChangeFamily(form, axis, family);
                showForm();
            }
        });
    }
    row->addStretch();
    layout.addLayout(row);
}

void DevicePanels::makeLists(std::size_t axis, QBoxLayout& layout) {
    AxisControls& made = axes[axis];
    constexpr int kSizeLength = 3;
    constexpr int kStrokeLength = 3;
    made.comboDeviceSize = makeList("comboDeviceSize", axis, kSizeLength, ChangeSize);
    made.comboDeviceSpeed = makeList("comboDeviceSpeed", axis, 1, ChangeSpeed);
    made.comboDeviceStroke = makeList("comboDeviceStroke", axis, kStrokeLength, ChangeStroke);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kSpacing);
    grid->setVerticalSpacing(kGap);
    grid->setColumnStretch(1, 1);
    struct Row {
        const char* name;
        std::int16_t tag;
        QComboBox* list;
    };
    const std::array<Row, 3> rows{{{"lblDeviceSize", 1410, made.comboDeviceSize},
                                   {"lblDeviceSpeed", 1411, made.comboDeviceSpeed},
                                   {"lblDeviceStroke", 1412, made.comboDeviceStroke}}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        auto* caption = new QLabel(made.PictureAxis);
        caption->setObjectName(Named(rows[i].name, axis));
        SetNumbers(*caption, rows[i].tag);
        made.captions[i] = caption;
        grid->addWidget(caption, static_cast<int>(i), 0);
        grid->addWidget(rows[i].list, static_cast<int>(i), 1);
    }
    layout.addLayout(grid);
}

void DevicePanels::makeBoxes(std::size_t axis, QBoxLayout& layout) {
    AxisControls& made = axes[axis];
    made.chkDevPgUse = makeBox("chkDevPgUse", axis, 1413, made.PictureAxis);
    made.chkDevVsiyou = makeBox("chkDevVsiyou", axis, 1414, made.PictureAxis);
    made.chkNewOrOld = makeBox("chkNewOrOld", axis, 1417, made.PictureAxis);
    for (QCheckBox* box : {made.chkDevPgUse, made.chkDevVsiyou, made.chkNewOrOld}) {
        KeepPlace(*box);
        layout.addWidget(box);
    }
    connect(made.chkDevPgUse, &QCheckBox::clicked, this,
            [this, axis](bool ticked) { form.axes[axis].chkDevPgUse.checked = ticked; });
    connect(made.chkDevVsiyou, &QCheckBox::clicked, this,
            [this, axis](bool ticked) { form.axes[axis].chkDevVsiyou.checked = ticked; });
    connect(made.chkNewOrOld, &QCheckBox::clicked, this, [this, axis](bool ticked) {
        takeTyped();
        ChangeNewOrOld(form, axis, ticked);
        showForm();
    });
}

QComboBox* DevicePanels::makeList(const char* name, std::size_t axis, int characters, Edit edit) {
    auto* list = new QComboBox(axes[axis].PictureAxis);
    list->setObjectName(Named(name, axis));
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    list->setCompleter(nullptr);
    list->lineEdit()->setMaxLength(characters);
    list->setMinimumContentsLength(kListCharacters);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    const auto take = [this, list, axis, edit] { edited(*list, axis, edit); };
    connect(list, &QComboBox::activated, this, take);
    connect(list->lineEdit(), &QLineEdit::editingFinished, this, take);
    // Without the last digit a stroke is another one.
    connect(list->lineEdit(), &QLineEdit::inputRejected, this, [] { ThePlatform().Beep(); });
    return list;
}

QCheckBox* DevicePanels::makeBox(const char* name, std::size_t axis, std::int16_t tag,
                                 QWidget* parent) {
    auto* box = new QCheckBox(parent);
    box->setObjectName(Named(name, axis));
    SetNumbers(*box, tag);
    return box;
}

void DevicePanels::edited(QComboBox& list, std::size_t axis, Edit edit) {
    edit(form, axis, list.currentText().toStdString());
    showForm();
}

void DevicePanels::takeTyped() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        // A list above may change what stands in those below, and a text typed there comes last.
        const AxisControls& shown = axes[axis];
        const std::string size = shown.comboDeviceSize->currentText().toStdString();
        const std::string speed = shown.comboDeviceSpeed->currentText().toStdString();
        const std::string stroke = shown.comboDeviceStroke->currentText().toStdString();
        AxisPanel& held = form.axes[axis];
        const bool sizeTyped = size != held.comboDeviceSize.text;
        const bool speedTyped = speed != held.comboDeviceSpeed.text;
        const bool strokeTyped = stroke != held.comboDeviceStroke.text;
        if (sizeTyped) {
            ChangeSize(form, axis, size);
        }
        if (speedTyped) {
            ChangeSpeed(form, axis, speed);
        }
        if (strokeTyped) {
            ChangeStroke(form, axis, stroke);
        }
    }
}

void DevicePanels::showForm() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const AxisPanel& shown = form.axes[axis];
        AxisControls& made = axes[axis];
        made.chkAxisEnable->setChecked(shown.chkAxisEnable);
        made.PictureAxis->setVisible(shown.chkAxisEnable);
        made.PictureAxis->setEnabled(shown.chkAxisEnable);
        for (std::size_t family = 0; family < made.optQdSelect.size(); ++family) {
            made.optQdSelect[family]->setChecked(static_cast<int>(family) == shown.optQdSelect);
        }
        ShowList(*made.comboDeviceSize, shown.comboDeviceSize);
        ShowList(*made.comboDeviceSpeed, shown.comboDeviceSpeed);
        ShowList(*made.comboDeviceStroke, shown.comboDeviceStroke);
        ShowBox(*made.chkDevPgUse, shown.chkDevPgUse);
        ShowBox(*made.chkDevVsiyou, shown.chkDevVsiyou);
        ShowBox(*made.chkNewOrOld, shown.chkNewOrOld);
    }
}

void DevicePanels::nameControls() {
    for (AxisControls& made : axes) {
        const auto name = [&made](QWidget& control, const QString& caption) {
            NameControl(control, made.frame->title() + QLatin1Char(' ') + caption);
        };
        for (QAbstractButton* button : {static_cast<QAbstractButton*>(made.chkAxisEnable),
                                        static_cast<QAbstractButton*>(made.optQdSelect[0]),
                                        static_cast<QAbstractButton*>(made.optQdSelect[1]),
                                        static_cast<QAbstractButton*>(made.chkDevPgUse),
                                        static_cast<QAbstractButton*>(made.chkDevVsiyou),
                                        static_cast<QAbstractButton*>(made.chkNewOrOld)}) {
            name(*button, button->text());
        }
        const std::array<QComboBox*, 3> lists{made.comboDeviceSize, made.comboDeviceSpeed,
                                              made.comboDeviceStroke};
        for (std::size_t i = 0; i < lists.size(); ++i) {
            name(*lists[i], made.captions[i]->text());
            name(*lists[i]->lineEdit(), made.captions[i]->text());
        }
        // The texts came while an axis out of use was hidden; its place is kept in their size, or
        // the window would grow when the axis is switched on.
        made.PictureAxis->layout()->activate();
        made.PictureAxis->updateGeometry();
    }
}

namespace {

/// The caution, with the sign that message boxes warn with.
QWidget* MakeCaution(QWidget& parent) {
    auto* frame = new QFrame(&parent);
    frame->setObjectName(QStringLiteral("FrameCaution"));
    frame->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto* layout = new QGridLayout(frame);
    layout->setHorizontalSpacing(kSpacing);
    layout->setVerticalSpacing(kGap / 2);
    layout->setColumnStretch(1, 1);
    auto* sign = new QLabel(frame);
    const int side = parent.style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, &parent);
    sign->setPixmap(parent.style()
                        ->standardIcon(QStyle::SP_MessageBoxWarning)
                        .pixmap(QSize(side, side), parent.devicePixelRatioF()));
    layout->addWidget(sign, 0, 0, 3, 1, Qt::AlignTop);
    constexpr std::array<std::int16_t, 3> kTexts{1504, 1505, 1506};
    for (std::size_t i = 0; i < kTexts.size(); ++i) {
        auto* text = new QLabel(frame);
        text->setObjectName(Named("lblCaution", i));
        text->setWordWrap(true);
        SetNumbers(*text, kTexts[i]);
        if (i == 0) {
            QFont bold = text->font();
            bold.setBold(true);
            text->setFont(bold);
        }
        layout->addWidget(text, static_cast<int>(i), 1);
    }
    return frame;
}

} // namespace

QBoxLayout* FillDeviceWindow(QDialog& window, DevicePanels& panels, bool caution) {
    SetNumbers(window, 1401);
    auto* layout = new QVBoxLayout(&window);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* text = new QLabel(&window);
    text->setObjectName(QStringLiteral("lblDeviceSelect"));
    SetNumbers(*text, 1402);
    layout->addWidget(text);
    layout->addWidget(&panels);
    if (caution) {
        layout->addWidget(MakeCaution(window));
    }
    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    return buttons;
}

QPushButton* AddDeviceButton(QBoxLayout& row, const char* name, std::int16_t tag) {
    auto* button = new QPushButton(row.parentWidget());
    button->setObjectName(QLatin1String(name));
    SetNumbers(*button, tag);
    row.addWidget(button);
    return button;
}

} // namespace qdw8
