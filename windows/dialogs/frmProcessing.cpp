#include "windows/dialogs/frmProcessing.h"

#include "app/Module1.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/placing.h"

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
    KeepCentred(*this);
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
        hide();
        setParent(home, windowFlags());
    }
}

} // namespace qdw8
