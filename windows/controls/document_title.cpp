#include "windows/controls/document_title.h"

#include "windows/controls/texts.h"

#include <QWidget>

namespace qdw8 {

void ShowDocumentTitle(QWidget& window, const std::string& name, bool unsaved,
                       std::int16_t textId) {
    const QString mark = QStringLiteral("[*]");
    // A name that looks like the place of the mark is none.
    const QString document = QString::fromStdString(name).replace(mark, mark + mark);
    const QString own = ResQText(textId);
    window.setWindowTitle(document.isEmpty() ? own + mark
                                             : document + mark + QLatin1String(" - ") + own);
    if (window.isWindowModified() != unsaved) {
        window.setWindowModified(unsaved);
    }
}

} // namespace qdw8
