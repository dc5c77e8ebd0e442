#include "pump_until.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace qdw8 {

bool PumpUntil(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(30000);
    QTimer wake; // the pump sleeps when nothing comes, the deadline included
    wake.setSingleShot(true);
    wake.start(30001);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

void PumpFor(int milliseconds) {
    bool over = false;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&over] { over = true; });
    timer.start(milliseconds);
    PumpUntil([&over] { return over; });
}

void WhenShown(const QString& objectName, const std::function<void(QWidget& window)>& act) {
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, objectName, act] {
        QWidget* window = QApplication::activeModalWidget();
        if (window != nullptr && window->objectName() == objectName && window->isVisible()) {
            look->stop();
            look->deleteLater();
            act(*window);
        }
    });
    look->start(1);
}

} // namespace qdw8
