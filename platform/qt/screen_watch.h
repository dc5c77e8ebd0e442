#pragma once

namespace qdw8 {

/// From now on, whenever a screen goes or becomes another size, every window and dialog that is up
/// and no longer lies wholly on the screens that are there comes back onto the nearest one, no
/// larger than that. What is maximised is left to the desktop. Does nothing when called again.
void InstallQtScreenWatch();

} // namespace qdw8
