#pragma once

#include <cstdint>
#include <string>

class QWidget;

namespace qdw8 {

/// The title of a window that shows a document: the name of the document, a mark while it holds
/// unsaved changes, and what the window itself is called, the text with that id. With an empty name
/// the window's own alone. Costs next to nothing when nothing has changed.
void ShowDocumentTitle(QWidget& window, const std::string& name, bool unsaved, std::int16_t textId);

} // namespace qdw8
