#include "windows/dialogs/frmProcessing.h"

#include "app/Module1.h"
#include "windows/controls/in_front.h"
#include "windows/controls/load_form_resources.h"

#include <QLabel>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 24;
constexpr int kWidthCharacters = 40;

} // namespace

frmProcessing::frmProcessing(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), home(parent) {
    setObjectName(QStringLiteral("frmProcessing"));
    SetNumbers(*this, 1901);
    auto* text = new QLabel(this);
    text->setObjectName(QStringLiteral("lblProcessing"));
    text->setAlignment(Qt::AlignCenter);
    text->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kWidthCharacters);
    SetNumbers(*text, 1902);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(text);
}

void frmProcessing::showState() {
    const bool wanted = IsSet(ProcessingShownFlag);
    if (wanted && !isVisible()) {
        LoadFormResources(*this);
        PutInFront(*this, home);
        show();
    } else if (!wanted && isVisible()) {
        TakeAway(*this, home);
    }
}

} // namespace qdw8
