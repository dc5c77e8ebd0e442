#include "windows/help/frmAbout.h"

#include "setup/system_info.h"
#include "version/version.h"
#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/program_icon.h"
#include "windows/controls/texts.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kLineSpacing = 4;
constexpr int kPictureSide = 64;
constexpr int kTextWidth = 66;   ///< in digits
constexpr qreal kNameSize = 1.6; ///< of the common font

QLabel* Label(const char* name, QWidget& parent) {
    auto* label = new QLabel(&parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* Paragraph(const char* name, std::int16_t tag, QWidget& parent) {
    QLabel* label = Label(name, parent);
    label->setWordWrap(true);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kTextWidth);
    SetNumbers(*label, tag);
    return label;
}

} // namespace

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    SetNumbers(*this, 1000);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(makeHead());
    layout->addWidget(Paragraph("lblDescription", 1003, *this));
    layout->addWidget(Paragraph("lblDisclaimer", 1004, *this));
    layout->addWidget(makeInformation());
    layout->addWidget(makeButtons());
    LoadFormResources(*this);
}

QWidget* frmAbout::makeHead() {
    auto* head = new QWidget(this);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kMargin);
    auto* picture = new PictureLabel(ProgramIcon(), kPictureSide, head);
    picture->setObjectName(QStringLiteral("picIcon"));
    layout->addWidget(picture);
    auto* texts = new QVBoxLayout;
    QLabel* title = Label("lblTitle", *head);
    SetNumbers(*title, 1001);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * kNameSize);
    font.setBold(true);
    title->setFont(font);
    QLabel* version = Label("lblVersion", *head);
    version->setText(ResQText(1002) + QLatin1Char(' ') + QLatin1String(version::kShown));
    texts->addStretch();
    texts->addWidget(title);
    texts->addWidget(version);
    texts->addStretch();
    layout->addLayout(texts, 1);
    return head;
}

QWidget* frmAbout::makeInformation() {
    auto* frame = new QGroupBox(this);
    frame->setObjectName(QStringLiteral("frameSysInfo"));
    SetNumbers(*frame, 1201);
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(kSpacing);
    grid->setVerticalSpacing(kLineSpacing);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const SystemLine& line : SystemInformation()) {
        const QString label = QString::fromStdString(line.label);
        auto* caption = new QLabel(label + QLatin1Char(':'), frame);
        caption->setTextFormat(Qt::PlainText);
        auto* value = new QLabel(QString::fromStdString(line.value), frame);
        value->setObjectName(Named("lblSysInfo", row));
        value->setTextFormat(Qt::PlainText);
        value->setWordWrap(true);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setAccessibleName(label + QLatin1Char(' ') + value->text());
        grid->addWidget(caption, row, 0, Qt::AlignLeft | Qt::AlignTop);
        grid->addWidget(value, row, 1, Qt::AlignTop);
        ++row;
    }
    return frame;
}

QWidget* frmAbout::makeButtons() {
    auto* foot = new QWidget(this);
    auto* layout = new QHBoxLayout(foot);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* copy = new QPushButton(foot);
    copy->setObjectName(QStringLiteral("cmdCopySysInfo"));
    SetNumbers(*copy, 3297);
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, this, CopySystemInformation);
    auto* ok = new QPushButton(foot);
    ok->setObjectName(QStringLiteral("cmdOK"));
    SetNumbers(*ok, 1005);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    layout->addWidget(copy);
    layout->addStretch();
    layout->addWidget(ok);
    ok->setFocus();
    return foot;
}

void ShowAbout(QWidget* parent) {
    frmAbout(parent).exec();
}

} // namespace qdw8
