#include "windows/dialogs/frmGiveUp.h"

#include "app/transfer_dialog.h"
#include "windows/controls/in_front.h"
#include "windows/controls/load_form_resources.h"
#include "windows/dialogs/cancel_key.h"

#include <QLabel>
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
    new CancelKey(*this, [] { return TheGiveUpOffer().shown; });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(text);
    AddCancelButton(*this, *layout, "cmdGiveUp", cmdGiveUp_Click);
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
