#pragma once

class QTabWidget;

namespace qdw8 {

/// Ctrl+Tab and Ctrl+Page Down turn to the next tab of a window's tabs, with Shift and with Page Up
/// to the one before, whatever has the focus: fields and lists would take these keys, as all that
/// they have no use for. Tabs that are off are passed over.
void AddTabKeys(QTabWidget& tabs);

} // namespace qdw8
