#pragma once

#include <QImage>
#include <QMessageBox>
#include <QObject>
#include <QSemaphore>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

/// The user's own thread and the program's: the story runs on the one, the windows are looked at on
/// the other.
///
/// Every wait is for a condition. What doesn't come about within `kDeadline`, and every message box
/// that the story doesn't tell of, ends the process with 1, after a report and pictures of all
/// windows.
namespace e2e {

/// ms. Far beyond anything that is waited for; only a hang ever reaches it.
inline constexpr int kDeadline = 60000;

/// What the story is at, for the report of a failure.
void NowAt(const QString& line);

/// Reports and ends the process with 1.
[[noreturn]] void Fail(const QString& what);

/// Has a routine run on the program's thread, after what was posted before, and doesn't wait for
/// it: a click that opens a modal window comes back only when that window is gone.
void Post(const std::function<void()>& routine);
/// The object through which that goes. To be asked for once on the program's thread before.
QObject* Ear();

/// Calls a routine on the program's thread and gives what it gives.
template<typename Look> auto OnGui(Look look) {
    struct Answer {
        QSemaphore ready;
        std::optional<decltype(look())> value;
    };
    const auto answer = std::make_shared<Answer>();
    Post([answer, look] {
        answer->value = look();
        answer->ready.release();
    });
    if (!answer->ready.tryAcquire(1, kDeadline)) {
        Fail(QStringLiteral("the program doesn't answer any more"));
    }
    return *answer->value;
}

/// The message box that has the user, or null. On the program's thread.
QMessageBox* BoxOnTop();

/// Waits until `condition`, looked at on the program's thread, holds. A box that comes meanwhile is
/// one that the story doesn't tell of, unless told otherwise.
enum class Boxes { AreFailures, AreFine };
void WaitFor(const std::function<bool()>& condition, Boxes boxes = Boxes::AreFailures);

/// Waits until what is seen on the program's thread is what is wanted; fails with the first line
/// that parts.
void Expect(const std::function<QString()>& look, const QString& wanted);
/// The same for what is there already.
void ExpectNow(const QString& seen, const QString& wanted);

/// For a tour, told by QDW8_USER_TOUR: a numbered picture of the whole screen, once it has come to
/// rest. Nothing happens in a test.
void Picture(const QString& name);

} // namespace e2e
