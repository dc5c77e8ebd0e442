#pragma once

#include "expected.h"
#include "scenarios.h"

#include <QByteArray>
#include <QObject>
#include <QSemaphore>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>
#include <memory>
#include <optional>

/// The words in which a story is told: what a user at the screen does and sees. They are spoken by
/// the user's own thread; the windows are looked at on the program's thread.
///
/// Every wait is for a condition. What doesn't come about within `kDeadline`, and every message box
/// that the story doesn't tell of, ends the process with 1, after a report and pictures of all
/// windows.
namespace e2e {

/// ms. Far beyond anything that is waited for; only a hang ever reaches it.
inline constexpr int kDeadline = 60000;

/// ms. What should come at once; after it a report tells what is there instead.
inline constexpr int kPatience = 5000;

/// Where the program keeps its settings, and where it was started, in the home of this run.
QString configFolder();
QString workFolder();
void writeSettings(const Settings& settings);
/// Puts a file into the work folder; what it holds.
void writeWorkFile(const QString& name, const QByteArray& content);
QByteArray contentOf(const QString& name);

/// Reports and ends the process with 1.
[[noreturn]] void fail(const QString& what);

/// Has a routine run on the program's thread, after what was posted before, and doesn't wait for
/// it: a click that opens a modal window comes back only when that window is gone.
void post(const std::function<void()>& routine);
/// The object through which that goes. To be asked for once on the program's thread before.
QObject* ear();

// ---- seeing

/// Calls a routine on the program's thread and gives what it gives.
template<typename Look> auto onGui(Look look) {
    struct Answer {
        QSemaphore ready;
        std::optional<decltype(look())> value;
    };
    const auto answer = std::make_shared<Answer>();
    post([answer, look] {
        answer->value = look();
        answer->ready.release();
    });
    if (!answer->ready.tryAcquire(1, kDeadline)) {
        fail(QStringLiteral("the program doesn't answer any more"));
    }
    return *answer->value;
}

/// Waits until `condition`, looked at on the program's thread, holds. A box that comes meanwhile is
/// one that the story doesn't tell of, unless told otherwise.
enum class Boxes { AreFailures, AreFine };
void waitFor(const QString& what, const std::function<bool()>& condition,
             Boxes boxes = Boxes::AreFailures);

/// Waits until the control is on the screen, or isn't.
void waitShown(const QString& name);
void waitGone(const QString& name);
/// Waits until the control is on the screen, enabled, and not behind a modal window.
void waitReady(const QString& name);
/// What a label, button, field or window title reads.
QString textOf(const QString& name);
void waitText(const QString& name, const QString& text);
/// Waits until the bar of the transfer dialog has come to `value`.
void waitProgress(int value);
QStringList devices();
/// The lamps that are lit, of Port, Online, Home, Alarm: "PO" after a start on line.
QString lamps();
void waitLamps(const QString& lit);

/// Compares, and fails with both values and the place where they part.
void expect(const QString& what, const QString& seen, const QString& wanted);
void expect(const QString& what, const QStringList& seen, const QStringList& wanted);
void expect(const QString& what, const QByteArray& seen, const QByteArray& wanted);

/// A text of the program's table in the language of the story.
QString text(int id);
void speak(const char* language); ///< "english", as at first, or "japanese"

// ---- doing

void click(const QString& name);
/// A menu entry by the names of the menus on the way to it and its own.
void choose(const QStringList& names);
/// Replaces what stands in a field.
void type(const QString& name, const QString& text);

/// A round or square mark, set or taken away.
void tick(const QString& name, bool on);
/// Types a row of a list into its field and leaves it with Tab.
void pick(const QString& name, const QString& text);

/// Waits for the message box with exactly this text, lines parted by "\n", presses a button ("Ok",
/// "Cancel", "Yes", "No") and sees the box go. `named`: what a tour calls the picture of it.
void expectBox(const QString& text, const QString& button,
               const QString& named = QStringLiteral("box"));

/// In the file dialog, which must offer `offered`: saves under `name`, or as offered if it is
/// empty.
void saveAs(const QString& offered, const QString& name);
/// Opens a file of the work folder, or any by its whole path.
void openFile(const QString& name);

/// Waits for the choice with this question and these choices, by the numbers of their texts, and
/// takes one.
void answer(int question, const QVector<int>& choices, int choice,
            const QString& named = QStringLiteral("choice"));

/// Answers the first question, and waits for the end of start-up.
void startOnLine();
/// Answers the first question with on line, and leaves the boxes to the story.
void chooseOnLine();
/// Reads positions from the controller, up to and with the confirmation.
void askForAllPositions();
void askForPositions(int first, int last);

/// Closes the main window; the program asks.
void tryToLeave();
/// Closes the program, with nothing unsaved or without saving it. The end of every story.
[[noreturn]] void leave();
[[noreturn]] void leaveUnsaved();

/// For the tour: a numbered picture of the whole screen. Nothing happens in a test.
bool isTour();
void picture(const QString& name);

} // namespace e2e
