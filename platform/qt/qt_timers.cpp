#include "platform/platform.h"
#include "platform/qt/guarded_call.h"
#include "platform/qt/qt_platform.h"
#include "platform/timer.h"

#include <QCoreApplication>
#include <QTimer>

#include <memory>
#include <unordered_map>

namespace qdw8 {
namespace {

/// The Qt timer behind each timer that was ever enabled. An entry stays: a timer that is stopped
/// costs nothing, and one may be stopped out of its own routine.
using TimerTable = std::unordered_map<Timer*, std::unique_ptr<QTimer>>;

std::unique_ptr<QTimer> MakeTimer(Timer& timer) {
    auto clock = std::make_unique<QTimer>();
    // A coarse timer may come a twentieth early, and a reply that keeps its time limit would then
    // be given up. A precise one wakes the program just as often: once an interval.
    clock->setTimerType(Qt::PreciseTimer);
    clock->setSingleShot(true);
    QObject::connect(clock.get(), &QTimer::timeout, clock.get(), [&timer, c = clock.get()] {
        // Armed again before the routine runs. Qt holds a repeating timer back while its routine
        // waits, and the receiver would be deaf for as long as it shows a box.
        c->start();
        // The routine may be replaced while it runs.
        const std::function<void()> routine = timer.routine;
        CallGuarded(timer.name.c_str(), routine);
    });
    return clock;
}

} // namespace

void InstallQtTimers() {
    auto table = std::make_shared<TimerTable>();
    ThePlatform().TimerChanged = [table](Timer& timer) {
        const bool runs = timer.enabled && timer.interval > 0;
        auto entry = table->find(&timer);
        if (entry == table->end()) {
            if (!runs) {
                return;
            }
            entry = table->emplace(&timer, MakeTimer(timer)).first;
        }
        if (runs) {
            entry->second->start(timer.interval);
        } else {
            entry->second->stop();
        }
    };
    ThePlatform().PumpEvents = [] {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    };
}

} // namespace qdw8
