#include "windows/dialogs/frmDataShogo.h"

#include "windows/controls/load_form_resources.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 10;
constexpr int kButtonPadding = 12; ///< left and right of a button's text, beyond the style's own

} // namespace

frmDataShogo::frmDataShogo(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmDataShogo"));
    SetNumbers(*this, 1701);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    auto* text = new QLabel(this);
    text->setObjectName(QStringLiteral("lblDataShogo"));
    SetNumbers(*text, 1702);
    layout->addWidget(text);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kSpacing);
    layout->addLayout(buttons);
    const auto button = [this, buttons](const char* name, std::int16_t tag, std::int16_t result) {
        auto* made = new QPushButton(this);
        made->setObjectName(QString::fromLatin1(name));
        SetNumbers(*made, tag);
        buttons->addWidget(made);
        connect(made, &QPushButton::clicked, this, [this, result] {
            DataShogoResult = result;
            done(result);
        });
        return made;
    };
    QPushButton* file = button("cmdFileDataShogo", 1703, 1);
    QPushButton* controller = button("cmdCtDataShogo", 1704, 2);
    button("cmdCancelOfShogo", 1705, 0);
    file->setDefault(true);
    file->setFocus();

    LoadFormResources(*this);
    // The two sources are of one size.
    const int width = std::max(file->sizeHint().width(), controller->sizeHint().width());
    file->setMinimumWidth(width + kButtonPadding);
    controller->setMinimumWidth(width + kButtonPadding);
}

std::int16_t AskDataShogo(QWidget* parent) {
    frmDataShogo dialog(parent);
    dialog.exec();
    return dialog.DataShogoResult;
}

} // namespace qdw8
