#pragma once

#include "user.h"

#include <QPoint>
#include <QString>
#include <QWidget>
#include <functional>

/// Pointer and keys. With `QDW8_USER_HANDS=xdotool` they are those of the X server, so that
/// everything between them and the program takes part; otherwise events are made in the program,
/// which needs no display.
namespace e2e {

/// A place on a widget: found anew on the program's thread whenever it is needed; the widget is
/// null as long as it can't be clicked.
struct Spot {
    QWidget* widget = nullptr;
    QPoint at;
};
using FindSpot = std::function<Spot()>;

void clickAt(const QString& what, const FindSpot& find, Boxes boxes = Boxes::AreFailures);

/// Types over what stands in the field that has the keys, which is `length` characters long.
void writeOver(const FindSpot& field, qsizetype length, const QString& text);

/// Closes a window as its title bar does.
void closeWindow(QWidget* window);

} // namespace e2e
