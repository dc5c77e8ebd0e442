#pragma once

#include <functional>

namespace qdw8 {

/// Calls a routine of the program from Qt's event loop. Qt can't be unwound by an exception, so
/// whatever the routine throws ends here, with a warning that names `who`: a routine is bound to
/// have a handler of its own, and what gets this far is a mistake in it. An empty routine is fine.
void CallGuarded(const char* who, const std::function<void()>& routine);

} // namespace qdw8
