#include "windows/access/tab_keys.h"

#include <QKeySequence>
#include <QShortcut>
#include <QTabWidget>
#include <utility>

namespace qdw8 {

void AddTabKeys(QTabWidget& tabs) {
    for (const auto& [keys, by] : {std::pair{"Ctrl+Tab", 1}, std::pair{"Ctrl+Shift+Tab", -1},
                                   std::pair{"Ctrl+PgDown", 1}, std::pair{"Ctrl+PgUp", -1}}) {
        auto* shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), &tabs);
        shortcut->setContext(Qt::WindowShortcut);
        QObject::connect(shortcut, &QShortcut::activated, &tabs, [&tabs, step = by] {
            int to = tabs.currentIndex();
            do {
                to = (to + step + tabs.count()) % tabs.count();
            } while (!tabs.isTabEnabled(to) && to != tabs.currentIndex());
            tabs.setCurrentIndex(to);
        });
    }
}

} // namespace qdw8
