// Every window in both languages on the desks that CMakeLists.txt names: one process for each, for
// a scale holds for a whole process. Each text must have its room and stand out from its ground,
// and each window must fit the screen. The pictures go to the folder QDW8_PICTURES.

#include "app/main_panel.h"
#include "app/string_table.h"
#include "each_window.h"
#include "platform/qt/dialog_places.h"
#include "text_notes.h"
#include "windows/access/visible_focus.h"
#include "windows/colours/legible.h"
#include "windows/parameter/frmParameta2.h"
#include "windows/simulator/texts.h"
#include "windows/simulator/window.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QDebug>
#include <QDir>
#include <QHeaderView>
#include <QPainter>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QTabWidget>
#include <typeinfo>

namespace qdw8::test {
namespace {

/// What a window manager puts around a window, at the least.
constexpr QSize kFrame{8, 32};

/// The colour that takes most of that place; shades that the eye takes for one count as one.
QColor GroundOf(const QImage& picture, const QRect& place) {
    std::map<QRgb, int> counts;
    std::pair<int, QRgb> most;
    for (int y = place.top(); y <= place.bottom(); y += 2) {
        for (int x = place.left(); x <= place.right(); x += 2) {
            const QRgb pixel = picture.pixel(x, y);
            most = std::max(most, {++counts[pixel & 0xF0F0F0], pixel});
        }
    }
    return most.second;
}

/// No part of that place of the control is scrolled away.
bool IsSeen(const QWidget& control, const QRect& place) {
    return QRegion(place & control.rect()).subtracted(control.visibleRegion()).isEmpty();
}

/// The colours of a desktop.
QPalette Scheme(const QByteArray& name) {
    const bool night = name == "dark";
    if (!night && name != "contrast") {
        return QApplication::style()->standardPalette();
    }
    const QColor ground = night ? QColor(0x2B2B2B) : QColor(Qt::black);
    const QColor ink = night ? QColor(0xE8E8E8) : QColor(Qt::white);
    QPalette made(ink, ground, ground.lighter(150), ground.darker(150), ground, ink,
                  night ? QColor(0x1E1E1E) : ground);
    made.setColor(QPalette::Button, night ? QColor(0x3A3A3A) : ground);
    made.setColor(QPalette::Highlight, night ? QColor(0x3080C0) : QColor(Qt::yellow));
    made.setColor(QPalette::HighlightedText, night ? QColor(Qt::white) : QColor(Qt::black));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        made.setColor(QPalette::Disabled, role, QColor(night ? 0x7F7F7F : 0x9FEF9F));
    }
    return made;
}

TEST(Legibility, GoesForWhateverColoursComeMeanwhile) {
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(Contrast(QColor(0x767676), Qt::white), 4.54, 0.01);
    const LegibleDesktop colours;
    for (const QPalette& other : {QPalette(), QPalette(Qt::darkGray)}) {
        QApplication::setPalette(other);
        const QPalette now = QApplication::palette();
        EXPECT_GE(Contrast(now.color(QPalette::Highlight), now.color(QPalette::HighlightedText)),
                  kLegible);
        EXPECT_GE(Contrast(now.color(QPalette::PlaceholderText), now.color(QPalette::Base)),
                  kLegible);
    }
}

class Looks : public EachWindow {
protected:
    Looks() {
        InstallQtDialogPlaces();
        InstallStyle();
        QDir().mkpath(folder);
        fill();
    }
    ~Looks() override { qdk8::ChooseLanguage(qdk8::Language::English); }

    void fill();

    void lookAt(const QString& name, QWidget& form) {
        if (!form.isVisible()) {
            if (auto* main = dynamic_cast<frmMain*>(&form)) {
                main->showSized(false);
            } else if (auto* parameters = dynamic_cast<frmParameta2*>(&form)) {
                parameters->open(false);
            } else {
                form.show();
            }
        }
        // The desktop takes its scheme while the window is there.
        const QPalette scheme = Scheme(desk[3]);
        QApplication::setPalette(Legible(scheme).resolve(scheme));
        QApplication::processEvents();
        const QSize least = form.size() + kFrame;
        const QSize screen = form.screen()->availableSize();
        EXPECT_TRUE(least.width() <= screen.width() && least.height() <= screen.height())
            << name.toStdString() << ": " << form.width() << "x" << form.height();
        auto* tabs = form.findChild<QTabWidget*>();
        for (int page = 0; page < (tabs == nullptr ? 1 : tabs->count()); ++page) {
            if (tabs != nullptr) {
                tabs->setCurrentIndex(page);
            }
            look(tabs == nullptr ? name : QStringLiteral("%1 %2").arg(name).arg(page + 1), form);
        }
        form.hide();
        QApplication::setPalette(QPalette());
    }

    void look(const QString& name, QWidget& form) {
        QApplication::processEvents();
        const QImage picture = form.grab().toImage();
        picture.save(folder + '/' + name + ".png");
        QList<QWidget*> controls = form.findChildren<QWidget*>();
        controls.prepend(&form);
        for (QWidget* control : controls) {
            if (control->isVisible()) {
                for (const DrawnText& text : TextsOf(*control)) {
                    judge(name, form, *control, text, picture);
                }
                judgeOutline(name, form, *control, picture);
            }
        }
    }

    /// An empty field, and a box without its tick, must be seen.
    static void judgeOutline(const QString& name, const QWidget& form, const QWidget& control,
                             const QImage& picture) {
        QStyleOptionButton option;
        option.initFrom(&control);
        QRect place = control.rect();
        if (qobject_cast<const QRadioButton*>(&control) != nullptr) {
            place = control.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option);
        } else if (typeid(control) == typeid(QCheckBox)) {
            place = control.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option);
        } else if (control.property("frame") != true) {
            return; // no field and no list
        }
        if (control.isEnabled() && IsSeen(control, place)) {
            const QPoint edge = control.mapTo(&form, QPoint(place.left(), place.center().y()));
            const double scale = picture.devicePixelRatio();
            double most = 1;
            for (double x = 0; x < 3; x += 1 / scale) {
                const auto at = [&](double beside) {
                    return picture.pixelColor(static_cast<int>((edge.x() + beside) * scale),
                                              static_cast<int>(edge.y() * scale));
                };
                most = std::max(most, Contrast(at(x), at(-2)));
            }
            EXPECT_GT(most, 1.5) << name.toStdString() << ": the outline of "
                                 << control.objectName().toStdString() << " at " << edge.x() << ','
                                 << edge.y();
        }
    }

    void judge(const QString& name, const QWidget& form, const QWidget& control,
               const DrawnText& text, const QImage& picture) {
        const auto* area = qobject_cast<QAbstractScrollArea*>(control.parentWidget());
        const bool scrolls = area != nullptr && area->viewport() == &control;
        if (qobject_cast<const QHeaderView*>(area) != nullptr) { // goes along with its table
            area = qobject_cast<QAbstractScrollArea*>(area->parentWidget());
        }
        const bool across = scrolls && area->horizontalScrollBar()->isVisible();
        const QRectF room = text.room.adjusted(-2, -1.5, 2, 1.5);
        const QRectF& place = text.place;
        const auto what = [&] {
            return name + ": " + control.metaObject()->className() + ' ' + control.objectName() +
                   " \"" + text.text + '"';
        };
        if ((!across && (place.left() < room.left() || place.right() > room.right())) ||
            (!scrolls && (place.top() < room.top() || place.bottom() > room.bottom())) ||
            text.text.contains(QChar(0x2026))) {
            ADD_FAILURE() << what().toStdString()
                          << " is cut: " << QDebug::toString(QList{place, text.room}).toStdString();
        }
        const QPoint at = control.mapTo(&form, QPoint());
        const double scale = picture.devicePixelRatio();
        const QRectF seen = (place & text.room).translated(at);
        const QRect pixels =
            QRectF(seen.topLeft() * scale, seen.size() * scale).toAlignedRect() & picture.rect();
        if (control.isEnabled() && !pixels.isEmpty() &&
            IsSeen(control, (place & text.room).toRect())) {
            const QColor ground = GroundOf(picture, pixels);
            QImage point(1, 1, QImage::Format_RGB32);
            point.fill(ground);
            QPainter(&point).fillRect(point.rect(), text.ink); // it may let the ground through
            const QColor ink = point.pixelColor(0, 0);
            if (Contrast(ink, ground) < kLegible) {
                ADD_FAILURE() << what().toStdString() << " is pale: " << ink.name().toStdString()
                              << " on " << ground.name().toStdString();
            }
        }
    }

    /// Percent of scale, width and height of the screen, colours, percent of the font's size.
    const QList<QByteArray> desk = qgetenv("QDW8_DESK").split(' ');
    const QString folder = qEnvironmentVariable("QDW8_PICTURES");
};

void Looks::fill() {
    show(1, 999);
    SetGridBad(3, 1, true);
    SetGridBad(5, 5, true);
    SetGridText(4, kGridCommentColumn, "Comment");
    for (const auto lamp : {&MainPanel::imgPortGreen, &MainPanel::imgGreenLedOnline,
                            &MainPanel::imgHomeGreen, &MainPanel::imgAlarmLed}) {
        SetPanel(lamp, true);
    }
    SetPanel(&MainPanel::lblAlarmNo, "81");
    SetPanel(&MainPanel::lblErrorComment, ResText(377));
    SetPanel(&MainPanel::lblFileName, "left.qdd");
    SetPanelScale("<1>1mm = 200Pulse", "<1>1Pulse= 0.005mm");
}

TEST_F(Looks, HaveRoomAndContrast) {
    QFont plain = QApplication::font();
    plain.setPointSizeF(plain.pointSizeF() * desk[4].toInt() / 100);
    for (const auto& [base, language] :
         {std::pair<std::int16_t, const char*>{10000, "en"}, {0, "ja"}}) {
        speak(base);
        QFont font = plain;
        if (base == 0) {
            font.setFamilies({"Noto Sans CJK JP", "IPAGothic", font.family()});
        }
        QApplication::setFont(font);
        visitAll([&, of = QString(language)](const char* name, QWidget& form) {
            lookAt(QString(name).remove(',') + ' ' + of, form);
        });
        qdk8::ChooseLanguage(base == 0 ? qdk8::Language::Japanese : qdk8::Language::English);
        qdk8::Front front;
        qdk8::Window simulator(front);
        simulator.showInCorner();
        lookAt(QString("simulator ") + language, simulator);
    }
    QApplication::setFont(plain);
}

} // namespace
} // namespace qdw8::test
