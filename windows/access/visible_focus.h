#pragma once

namespace qdw8 {

/// Gives the application its style: the outlines of `OutlinedStyle`, and every window shows which
/// of its controls has the focus, from the moment it comes up: by itself the toolkit begins to do
/// so with the first Tab, and whoever opened a window with a key would have to guess until then
/// where the next one goes. A button has a dotted frame, as the default button looks the same with
/// the focus and without it; lists, tables and pages of text have one in the colour of the
/// selection.
void InstallStyle();

} // namespace qdw8
