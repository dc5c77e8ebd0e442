#pragma once

#include <QImage>
#include <QMessageBox>
#include <QObject>
#include <QString>
#include <chrono>
#include <functional>
#include <future>
#include <memory>

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
    const auto task = std::make_shared<std::packaged_task<decltype(look())()>>(look);
    auto answer = task->get_future();
    Post([task] { (*task)(); });
    if (answer.wait_for(std::chrono::milliseconds(kDeadline)) != std::future_status::ready) {
        Fail("the program doesn't answer any more");
    }
    return answer.get();
}

/// The message box that has the user, or null. On the program's thread.
QMessageBox* BoxOnTop();

/// Waits until `condition`, looked at on the program's thread, holds. A box that comes meanwhile is
/// one that the story doesn't tell of, unless told otherwise.
enum class Boxes { AreFailures, AreFine };
void WaitFor(const std::function<bool()>& condition, Boxes boxes = Boxes::AreFailures);

/// Waits until what is seen on the program's thread is what is wanted; fails with the place
/// where they part.
void Expect(const std::function<QString()>& look, const QString& wanted);
/// The same for what is there already.
void ExpectNow(const QString& seen, const QString& wanted);

/// What a file holds. Fails if it can't be read.
QByteArray ContentOf(const QString& name);

/// For a tour, told by QDW8_USER_TOUR: a numbered picture of the whole screen, once it has come to
/// rest. Nothing happens in a test.
void Picture(const QString& name);

} // namespace e2e
