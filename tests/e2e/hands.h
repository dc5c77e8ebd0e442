#pragma once

#include "gui.h"
#include "looking.h"

/// Pointer and keys. With `QDW8_USER_HANDS=xdotool` they are those of the X server, so that
/// everything between them and the program takes part; otherwise events are made in the program,
/// which needs no display.
namespace e2e {

enum class Held { Nothing, Shift };
void ClickAt(const FindSpot& find, Boxes boxes = Boxes::AreFailures, Held held = Held::Nothing);

/// The left button goes down on it and stays down; goes up wherever the pointer is.
void HoldAt(const FindSpot& find);
void LetGo();
/// A key goes down, or up, for what has the keys.
void HoldKey(const QString& key, bool down);

/// Keys to what has the keys: "Return", "Escape", "Tab", "ctrl+c".
void Press(const QStringList& keys);
/// Types a text to what has the keys.
void KeyIn(const QString& text);

/// Closes a window as its title bar does.
void CloseWindow(QWidget* window);

} // namespace e2e
