#pragma once

#include "app/screens.h"
#include "platform/platform.h"
#include "platform/timer.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qdw8::test {

/// The platform of the unit tests. Time stands still until the program waits; then it jumps to the
/// next timer, arrival or user action. Every question must be expected, in order and in full: one
/// that was not expected fails the test at once, and so does an expected one that never came.
///
/// While an object lives it is the platform in force, and `Screens()` asks the same queue.
class ScriptedPlatform {
public:
    ScriptedPlatform();
    ~ScriptedPlatform();
    ScriptedPlatform(const ScriptedPlatform&) = delete;
    ScriptedPlatform& operator=(const ScriptedPlatform&) = delete;

    // ---- time ----

    std::int64_t now = 0; ///< milliseconds
    /// Runs an action at a time from now, out of the event pump: what a user does meanwhile.
    void after(std::int64_t ms, std::function<void()> action);
    /// Pumps until nothing is due within the next `ms` milliseconds.
    void run(std::int64_t ms);

    // ---- the line ----

    /// Called with every text that goes out, CR LF included; the test or a simulator answers.
    std::function<void(const std::string&)> onOutput;
    /// Characters that arrive `ms` milliseconds from now.
    void arrive(std::int64_t ms, const std::string& characters);
    /// Answers the n-th text that goes out, in order: `reply` gets CR LF behind it and comes after
    /// `ms` milliseconds. A frame with no answer queued meets silence.
    void answer(const std::string& reply, std::int64_t ms = 10);
    void answerBytes(std::vector<std::pair<std::int64_t, std::string>> pieces);
    /// The line fails: it closes itself and tells.
    void breakLine();

    int failingOpens = 0; ///< so many opens fail, then they are good; -1: all fail
    bool outputFaults = false;
    bool inputFaults = false;
    bool portOpen = false;
    int openedPort = 0; ///< the number that the port was last opened with

    /// Every text that went out, without CR LF.
    std::vector<std::string> sent;
    std::vector<std::int64_t> sentAt; ///< and when, in milliseconds
    /// What happened in order: "open fails", "send 0CM02", "close", "line breaks", the questions
    /// and what a test adds.
    std::vector<std::string> events;

    // ---- questions ----

    void expectBox(const std::string& text, BoxButtons buttons = BoxButtons::Ok,
                   BoxAnswer answer = BoxAnswer::Ok);
    /// Nothing: the user cancels.
    void expectFile(const FileQuestion& question, const std::optional<FileAnswer>& answer);
    void expectSelection(const SelectionQuestion& question, std::int16_t answer);
    /// A modal window without a question of its own: runs the script in its place. `frmDataShogo`,
    /// the choice of what to verify with, gives the answer.
    void expectScreen(const std::string& name, std::function<void()> script = {},
                      std::int16_t answer = 0);
    /// A box that isn't the next expected question is noted and answered with OK, Yes, or No where
    /// there is a Cancel beside it; expected questions that never come are no error.
    bool recordsBoxes = false;
    std::vector<std::string> boxes; ///< their texts
    /// Checks that every expected question has come, so that a later step starts clean.
    void checkAllAsked();

    // ---- the rest ----

    std::map<std::string, std::string> settings; ///< by key
    std::string clipboard;
    ScreenSize screen{1280, 1024};
    int beeps = 0;
    std::string lastWord; ///< of the port
    bool ended = false;
    bool imeOpen = true;

private:
    struct Due {
        std::int64_t at = 0;
        std::int64_t order = 0;
        Timer* timer = nullptr; ///< that comes again; null for what happens once
        std::function<void()> action;
    };
    struct Expected {
        std::string description; ///< the question in full
        std::function<void()> script;
        std::int16_t answer = 0;
        std::optional<FileAnswer> file;
    };

    void installSerial();
    void installScreens();
    BoxAnswer askBox(const BoxQuestion& question);
    Expected ask(const std::string& description);
    void pump();
    bool step(std::int64_t limit);
    void timerChanged(Timer& timer);
    void received(const std::string& characters);

    std::vector<Due> dues;
    std::int64_t nextOrder = 0;
    std::deque<Expected> expected;
    std::deque<std::vector<std::pair<std::int64_t, std::string>>> answers;
    std::string inputBuffer;
    int commPort = 0;
};

/// Thrown out of `PumpEvents` when the program waits for something that can never come. The test
/// has failed by then; no handler of the program catches it.
struct WaitsForEver {};

} // namespace qdw8::test
