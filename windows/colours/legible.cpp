#include "windows/colours/legible.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <array>
#include <cmath>

namespace qdw8 {
namespace {

/// Light of a colour as the eye weighs it, 0 to 1.
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// `over` where it hides that share of what is below.
QColor Mixed(const QColor& over, const QColor& below, double share) {
    const auto part = [share](int above, int under) {
        return static_cast<int>(std::lround(share * above + (1 - share) * under));
    };
    return {part(over.red(), below.red()), part(over.green(), below.green()),
            part(over.blue(), below.blue())};
}

/// What stands on what, and which of the two gives way.
struct Pair {
    QPalette::ColorRole moved;
    QPalette::ColorRole kept;
};
constexpr std::array kPairs{Pair{QPalette::WindowText, QPalette::Window},
                            Pair{QPalette::Text, QPalette::Base},
                            Pair{QPalette::ButtonText, QPalette::Button},
                            Pair{QPalette::ToolTipText, QPalette::ToolTipBase},
                            Pair{QPalette::PlaceholderText, QPalette::Base},
                            Pair{QPalette::Link, QPalette::Base},
                            Pair{QPalette::LinkVisited, QPalette::Base},
                            Pair{QPalette::Highlight, QPalette::HighlightedText}};

} // namespace

double Contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor Apart(const QColor& moved, const QColor& kept, double contrast) {
    const QColor seen = Mixed(moved, kept, moved.alphaF());
    const QColor black = Qt::black;
    const QColor white = Qt::white;
    const QColor end = Contrast(black, kept) > Contrast(white, kept) ? black : white;
    constexpr int kSteps = 20;
    QColor made = seen;
    for (int step = 1; step <= kSteps && Contrast(made, kept) < contrast; ++step) {
        made = Mixed(end, seen, static_cast<double>(step) / kSteps);
    }
    return made;
}

QPalette Legible(const QPalette& desktop) {
    QPalette made;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        for (const Pair& pair : kPairs) {
            const QColor kept = desktop.color(group, pair.kept);
            const QColor moved = desktop.color(group, pair.moved);
            if (const QColor apart = Apart(moved, kept, kLegible); apart != moved) {
                made.setColor(group, pair.moved, apart);
            }
        }
    }
    return made;
}

LegibleDesktop::LegibleDesktop() {
    take();
    qApp->installEventFilter(this);
}

void LegibleDesktop::take() {
    taking = true;
    QApplication::setPalette(QPalette()); // what was set would stay over the desktop's own
    QApplication::setPalette(Legible(QApplication::palette()));
    taking = false;
}

bool LegibleDesktop::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && object == qApp && !taking) {
        take();
    }
    return false;
}

} // namespace qdw8
