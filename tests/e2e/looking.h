#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <functional>

/// What is on the screen, as the user's words look for it. Everything here runs on the program's
/// thread.
namespace e2e {

/// A place on a widget: found anew whenever it is needed; the widget is null as long as it can't be
/// clicked.
struct Spot {
    QWidget* widget = nullptr;
    QPoint at;
};
using FindSpot = std::function<Spot()>;

/// The first visible control of the name; the first one that is also enabled and not behind a modal
/// window. Null if there is none.
QWidget* Seen(const QString& name);
QWidget* Ready(const QString& name);

/// Where to press a control: a round or square mark has its place at the left.
Spot SpotOn(QWidget* widget);
/// The entry of a menu that is open; the bar counts as one.
Spot SpotOfEntry(const QString& menuName, const QString& name);

/// The tab of a page.
Spot SpotOfTab(const QString& page);

/// What a label, button, field or window title reads.
QString ReadText(const QString& name);

} // namespace e2e
