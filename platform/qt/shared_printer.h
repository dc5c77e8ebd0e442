#pragma once

class QPrinter;

namespace qdw8 {

/// The printer that the printer dialog chooses and the next document goes to. Made at the first
/// call, as asking the system for its printers takes a while: the system's default printer, or a
/// PDF file without a name if the machine has none.
QPrinter& SharedPrinter();

/// Gives the printer the margins that will be kept: those chosen, but no less than it needs and no
/// more than leaves the forms their room. So a dialog shows what counts.
void ShowMarginsUsed();

} // namespace qdw8
