#pragma once

#include <QRgb>
#include <QString>

class QPalette;
class QWidget;

namespace qdw8 {

/// Background of what a check refused, in fields, cells and lists alike. It is light, so the text
/// on it is dark on every palette.
inline constexpr QRgb kRefusedColour = qRgb(0xFF, 0x80, 0x80);

/// Gives the palette of a field these colours, for a locked one too.
void ColourRefused(QPalette& palette);

/// Shows or hides the sign of a refused field, in the part of it that its text leaves free: nobody
/// has to tell it by its colour alone.
void ShowRefusedSign(QWidget& field, bool refused);

/// Shows what the last check said of a field: with a reason it is coloured and has its sign, and
/// the reason is its tool tip; else the tool tip tells what may be typed. A screen reader says the
/// same behind the field's name. Costs next to nothing when nothing has changed.
void ShowJudgement(QWidget& field, const QString& reason, const QString& limits);

} // namespace qdw8
