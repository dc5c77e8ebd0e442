#include "windows/controls/refused_field.h"

#include <QPalette>
#include <QWidget>

namespace qdw8 {
namespace {

/// Dynamic property: the field is coloured.
constexpr const char* kRefused = "Refused";

void Colour(QWidget& field, bool refused) {
    if (field.property(kRefused).toBool() == refused) {
        return;
    }
    field.setProperty(kRefused, refused);
    QPalette colours;
    if (refused) {
        ColourRefused(colours);
    }
    field.setPalette(colours);
}

} // namespace

void ColourRefused(QPalette& palette) {
    for (const auto role : {QPalette::Base, QPalette::Button}) { // a list is a button
        palette.setColor(role, kRefusedColour);
    }
    for (const auto role : {QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, Qt::black);
    }
}

void ShowJudgement(QWidget& field, const QString& reason, const QString& limits) {
    Colour(field, !reason.isEmpty());
    const QString tip = reason.isEmpty() ? limits : reason;
    if (field.toolTip() != tip) {
        field.setToolTip(tip);
        field.setAccessibleDescription(tip);
    }
}

} // namespace qdw8
