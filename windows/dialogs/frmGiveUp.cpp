#include "windows/dialogs/frmGiveUp.h"

#include "app/transfer_dialog.h"
#include "windows/controls/in_front.h"
#include "windows/controls/load_form_resources.h"
#include "windows/dialogs/cancel_key.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 10;

} // namespace

frmGiveUp::frmGiveUp(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), home(parent),
      text(new QLabel(this)) {
    setObjectName(QStringLiteral("frmGiveUp"));
    SetNumbers(*this, 201);
    text->setObjectName(QStringLiteral("lblGiveUp"));
    text->setTextFormat(Qt::PlainText);
    auto* cancel = new QPushButton(this);
    cancel->setObjectName(QStringLiteral("cmdGiveUp"));
    // The dialog itself has the focus: a blank or an Enter that was meant for something else
    // gives up nothing. Who wants the button by the keyboard goes to it with Tab.
    setFocusPolicy(Qt::StrongFocus);
    cancel->setFocusPolicy(Qt::TabFocus);
    cancel->setAutoDefault(false);
    SetNumbers(*cancel, 1404);
    connect(cancel, &QPushButton::clicked, this, [] { cmdGiveUp_Click(); });
    new CancelKey(*this, [] { return TheGiveUpOffer().shown; });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(text);
    layout->addLayout(buttons);
}

void frmGiveUp::showState() {
    const GiveUpOffer& offer = TheGiveUpOffer();
    if (offer.shown && !isVisible()) {
        LoadFormResources(*this);
        text->setText(QString::fromStdString(offer.text));
        PutInFront(*this, home);
        setFocus();
        show();
    } else if (!offer.shown && isVisible()) {
        TakeAway(*this, home);
    }
}

void frmGiveUp::reject() {
    cmdGiveUp_Click();
}

} // namespace qdw8
