#include "windows/help/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTabWidget>
#include <utility>

namespace qdw8 {
namespace {

HelpAsked AskedAt(const QWidget* at) {
    HelpAsked asked;
    for (; at != nullptr; at = at->parentWidget()) {
        if (const auto* tabs = qobject_cast<const QTabWidget*>(at); tabs && tabs->currentWidget()) {
            asked.names << tabs->currentWidget()->objectName();
        }
        if (at->isWindow()) {
            // The dialogs of files and of printers have one name.
            asked.names << QLatin1String(at->metaObject()->className());
        }
        asked.names << at->objectName();
        if (const auto* box = qobject_cast<const QMessageBox*>(at); box && asked.text.isEmpty()) {
            asked.text = box->text();
        }
    }
    return asked;
}

class HelpKey : public QObject {
public:
    HelpKey(QObject& owner, std::function<void(const HelpAsked&)> what)
        : QObject(&owner), open(std::move(what)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) {
            return false;
        }
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const auto* at = qobject_cast<const QWidget*>(watched);
        if (at == nullptr || key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) {
            return false;
        }
        // Not a shortcut of the one window that has it in its menu.
        event->accept();
        if (event->type() == QEvent::KeyPress && !key.isAutoRepeat()) {
            const HelpAsked asked = AskedAt(at);
            while (QWidget* popup = QApplication::activePopupWidget()) {
                popup->close();
            }
            open(asked);
        }
        return true;
    }

private:
    std::function<void(const HelpAsked&)> open;
};

} // namespace

void InstallHelpKey(QObject& owner, const std::function<void(const HelpAsked&)>& open) {
    qApp->installEventFilter(new HelpKey(owner, open));
}

} // namespace qdw8
