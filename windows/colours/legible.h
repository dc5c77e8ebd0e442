#pragma once

#include <QObject>
#include <QPalette>

namespace qdw8 {

/// How far two colours stand apart for the eye, whoever's eye it is: from 1, the same, to 21, black
/// and white. Both are taken as opaque.
double Contrast(const QColor& one, const QColor& other);

/// A text below this is too pale to be read by everybody.
inline constexpr double kLegible = 4.5;

/// The colour as it stands on `kept`, moved towards black or white, whichever is further away,
/// until the two stand so far apart, or as far as they can.
QColor Apart(const QColor& moved, const QColor& kept, double contrast);

/// The palette with every text that is too pale for its ground brought further away from it; a
/// selection keeps its text and gets another ground. What can't be used stays as pale as the
/// desktop has it. Only the colours that had to be changed are set by the palette itself.
QPalette Legible(const QPalette& desktop);

/// As long as it lives the windows have the colours of the desktop, made legible, also of another
/// scheme that the desktop takes meanwhile. The style must have been set before.
class LegibleDesktop : public QObject {
public:
    LegibleDesktop();
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void take();

    bool taking = false;
};

} // namespace qdw8
