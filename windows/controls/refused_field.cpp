#include "windows/controls/refused_field.h"

#include <QPalette>
#include <QWidget>

namespace qdw8 {
namespace {

/// As a refused cell of the grid.
constexpr QRgb kRefusedColour = qRgb(0xFF, 0x80, 0x80);
/// Dynamic property: the field is coloured.
constexpr const char* kRefused = "Refused";

void Colour(QWidget& field, bool refused) {
    if (field.property(kRefused).toBool() == refused) {
        return;
    }
    field.setProperty(kRefused, refused);
    QPalette colours;
    if (refused) {
        colours.setColor(QPalette::Base, kRefusedColour);
        colours.setColor(QPalette::Button, kRefusedColour); // of a list
        // The colour is light, so the text on it is dark on every palette.
        colours.setColor(QPalette::Text, Qt::black);
        colours.setColor(QPalette::ButtonText, Qt::black);
    }
    field.setPalette(colours);
}

} // namespace

void ShowJudgement(QWidget& field, const QString& reason, const QString& limits) {
    Colour(field, !reason.isEmpty());
    const QString tip = reason.isEmpty() ? limits : reason;
    if (field.toolTip() != tip) {
        field.setToolTip(tip);
        field.setAccessibleDescription(tip);
    }
}

} // namespace qdw8
