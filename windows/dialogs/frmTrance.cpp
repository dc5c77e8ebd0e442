#include "windows/dialogs/frmTrance.h"

#include "app/transfer_dialog.h"
#include "windows/controls/in_front.h"
#include "windows/controls/load_form_resources.h"
#include "windows/dialogs/cancel_key.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 10;
constexpr int kWidthCharacters = 52;
/// On a fast line a row takes a fifth of a millisecond; nobody sees that many steps.
constexpr int kPaintMs = 40;

} // namespace

frmTrance::frmTrance(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), home(parent),
      text(new QLabel(this)), bar(new QProgressBar(this)) {
    setObjectName(QStringLiteral("frmTrance"));
    text->setObjectName(QStringLiteral("lblSetumei"));
    text->setTextFormat(Qt::PlainText);
    text->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kWidthCharacters);
    bar->setObjectName(QStringLiteral("prgBar1"));
    bar->setTextVisible(true);
    bar->setFormat(QStringLiteral("%v"));
    bar->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(text);
    layout->addWidget(bar);
    cancel = AddCancelButton(*this, *layout, "cmdTranceCancel", cmdTranceCancel_Click);
    new CancelKey(*this,
                  [] { return TheTransferDialog().shown && TheTransferDialog().cancelShown; });
    later.setSingleShot(true);
    connect(&later, &QTimer::timeout, this, [this] { showValue(); });
}

void frmTrance::showState() {
    const TransferDialog& dialog = TheTransferDialog();
    if (!dialog.shown) {
        later.stop();
        if (isVisible()) {
            TakeAway(*this, home);
        }
        return;
    }
    const bool opens = !isVisible();
    if (opens) {
        SetNumbers(*this, dialog.titleId);
        LoadFormResources(*this);
        bar->setAccessibleName(windowTitle());
    }
    const QString wanted = QString::fromStdString(dialog.lblSetumei);
    const bool changes = opens || bar->maximum() != dialog.prgBar1Max || text->text() != wanted ||
                         cancel->isVisibleTo(this) != dialog.cancelShown;
    if (changes) {
        text->setText(wanted);
        // A maximum of 0 would make the bar run to and fro.
        bar->setRange(0, dialog.prgBar1Max > 0 ? dialog.prgBar1Max : 1);
        cancel->setVisible(dialog.cancelShown);
        cancel->setEnabled(dialog.cancelShown);
    }
    if (changes || dialog.prgBar1 == dialog.prgBar1Max) {
        showValue();
    } else if (!later.isActive()) {
        // Painted while the next row is on the line: it must not stand between a reply and the
        // next frame.
        later.start(sincePainted.hasExpired(kPaintMs) ? 0 : kPaintMs);
    }
    if (opens) {
        PutInFront(*this, home);
        setFocus();
        show();
    }
}

void frmTrance::reject() {
    if (TheTransferDialog().cancelShown) {
        cmdTranceCancel_Click();
    }
}

void frmTrance::closeEvent(QCloseEvent* event) {
    event->ignore();
}

void frmTrance::showValue() {
    later.stop();
    bar->setValue(TheTransferDialog().prgBar1);
    sincePainted.start();
}

} // namespace qdw8
