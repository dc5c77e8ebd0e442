#pragma once

namespace qdw8 {

/// From now on every dialog that has a parent window and no place of its own comes up centred over
/// that window, wholly on its screen and no larger than that. While it is modal and the user hasn't
/// moved it, it goes along when the window is moved: a window manager may find a place for a window
/// only after the first dialog has come up over it. Likewise when its layout gives it another size.
/// Does nothing when called again.
void InstallQtDialogPlaces();

} // namespace qdw8
