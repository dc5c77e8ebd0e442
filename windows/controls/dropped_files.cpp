#include "windows/controls/dropped_files.h"

#include "platform/qt/work_window.h"

#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace qdw8 {
namespace {

/// Empty for what is no file of this machine.
std::string PathOf(QUrl url) {
    if (url.host() == QLatin1String("localhost")) {
        url.setHost({});
    }
    return url.host().isEmpty() ? url.toLocalFile().toStdString() : std::string();
}

class DropWatch : public QObject {
public:
    DropWatch(QWidget& of, std::function<bool()> may,
              std::function<void(const std::vector<std::string>&)> then)
        : QObject(&of), window(of), takes(std::move(may)), dropped(std::move(then)) {}

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop: look(*static_cast<QDropEvent*>(event)); return true;
        default: return false;
        }
    }

private:
    bool mayTake() const {
        const QWidget* const modal = QApplication::activeModalWidget();
        return (modal == nullptr || modal == &window) && takes();
    }

    void look(QDropEvent& event) {
        if (!event.mimeData()->hasUrls() || !mayTake()) {
            event.ignore();
            return;
        }
        event.setDropAction(Qt::CopyAction); // a file stays where it is
        event.accept();
        if (event.type() == QEvent::Drop) {
            std::vector<std::string> paths;
            for (const QUrl& url : event.mimeData()->urls()) {
                paths.push_back(PathOf(url));
            }
            QTimer::singleShot(0, this, [this, paths] {
                if (mayTake()) {
                    WorkIn(window);
                    dropped(paths);
                }
            });
        }
    }

    QWidget& window;
    std::function<bool()> takes;
    std::function<void(const std::vector<std::string>&)> dropped;
};

} // namespace

void TakeDroppedFiles(QWidget& window, std::function<bool()> takes,
                      std::function<void(const std::vector<std::string>&)> dropped) {
    window.setAcceptDrops(true);
    for (QLineEdit* field : window.findChildren<QLineEdit*>()) {
        field->setAcceptDrops(false); // there the name of the file would be typed
    }
    window.installEventFilter(new DropWatch(window, std::move(takes), std::move(dropped)));
}

} // namespace qdw8
