#pragma once

class QPrinter;

namespace qdw8 {

/// The printer that the printer dialog chooses and the next document goes to. Made at the first
/// call, as asking the system for its printers takes a while: the system's default printer, or a
/// PDF file without a name if the machine has none.
QPrinter& SharedPrinter();

} // namespace qdw8
