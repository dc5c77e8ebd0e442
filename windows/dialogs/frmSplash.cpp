#include "windows/dialogs/frmSplash.h"

#include "windows/controls/labels.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/program_icon.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kPictureSide = 96;
constexpr int kMargin = 28;

QLabel* Line(QWidget& parent, const char* name, std::int16_t tag, qreal size) {
    auto* line = new QLabel(&parent);
    line->setObjectName(QString::fromLatin1(name));
    SetNumbers(*line, tag);
    QFont font = line->font();
    font.setPointSizeF(font.pointSizeF() * size);
    font.setBold(size > 2);
    line->setFont(font);
    return line;
}

} // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmSplash"));
    SetNumbers(*this, 201);
    setWindowIcon(ProgramIcon());
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    auto* picture = new PictureLabel(ProgramIcon(), kPictureSide, this);
    picture->setObjectName(QStringLiteral("imgLogo"));
    auto* texts = new QVBoxLayout;
    texts->addStretch();
    texts->addWidget(Line(*this, "lblProductName", 201, 3));
    texts->addWidget(Line(*this, "lblVersion", 2005, 1.2));
    texts->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, 2 * kMargin, kMargin);
    layout->setSpacing(kMargin);
    layout->addWidget(picture);
    layout->addLayout(texts);

    LoadFormResources(*this);
    picture->setAccessibleName(windowTitle());
}

void frmSplash::showCentred() {
    adjustSize();
    if (const QScreen* on = screen()) {
        move(on->availableGeometry().center() - rect().center());
    }
    show();
}

} // namespace qdw8
