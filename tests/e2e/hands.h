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

enum class Held { Nothing, Shift };
void clickAt(const QString& what, const FindSpot& find, Boxes boxes = Boxes::AreFailures,
             Held held = Held::Nothing);

/// A key to what has the keys: "Return", "Escape", "Tab", "ctrl+c".
void press(const QString& key);
/// Types a text to what has the keys.
void keyIn(const QString& text);

/// Types over what stands in the field that has the keys, which is `length` characters long.
void writeOver(const FindSpot& field, qsizetype length, const QString& text);

/// Closes a window as its title bar does.
void closeWindow(QWidget* window);

} // namespace e2e
