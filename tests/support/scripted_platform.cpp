#include "support/scripted_platform.h"

#include "platform/fault.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>

namespace qdw8::test {

namespace {

// How a question stands in a failure message.

std::string Describe(const BoxQuestion& question) {
    static const std::string names[] = {"Ok", "OkCancel", "YesNo", "YesNoCancel"};
    return "box " + names[static_cast<std::size_t>(question.buttons)] + ": " + question.text +
           (question.mildDefault ? " [mild]" : "");
}

std::string Describe(const FileQuestion& question) {
    return std::string(question.kind == FileQuestion::Kind::Open ? "open" : "save") +
           " dialog: " + question.title + " | " + question.filter + " | " + question.defaultExt +
           " | " + question.fileName + " | " + question.folder + " | " +
           std::to_string(question.flags);
}

std::string Describe(const SelectionQuestion& question) {
    std::string text = "selection: " + question.title + " | " + question.text;
    for (const std::string& choice : question.choices) {
        text += " | " + choice;
    }
    for (const std::string& detail : question.details) {
        text += " | " + detail;
    }
    return text + (question.mustAnswer ? " | must answer" : "");
}

} // namespace

ScriptedPlatform::ScriptedPlatform() {
    Platform& platform = ThePlatform();
    platform = Platform{};
    Screens() = ScreenFunctions{};
    platform.PumpEvents = [this] { pump(); };
    platform.TimerChanged = [this](Timer& timer) { timerChanged(timer); };
    platform.ShowMessageBox = [this](const BoxQuestion& question) { return askBox(question); };
    platform.CommonDialog1.ShowFile = [this](const FileQuestion& question) {
        return ask(Describe(question)).file;
    };
    platform.Settings.GetSetting = [this](const auto&, const auto& key, const auto& fallback) {
        return settings.contains(key) ? settings.at(key) : fallback;
    };
    platform.Settings.SaveSetting = [this](const auto&, const auto& key, const auto& value) {
        settings[key] = value;
    };
    platform.TheClipboard.GetText = [this] { return clipboard; };
    platform.TheClipboard.SetText = [this](const std::string& text) { clipboard = text; };
    platform.TheClipboard.Clear = [this] { clipboard.clear(); };
    platform.ImeSetOpenStatus = [this](bool open) { imeOpen = open; };
    platform.Beep = [this] { ++beeps; };
    platform.GetScreenSize = [this] { return screen; };
    platform.GetDesktopFacts = [] {
        return DesktopFacts{"System 1", "1280 x 1024", {"Library 2", "Library 3"}};
    };
    platform.GetLocalTime = [] { return LocalTime{2024, 11, 21, 9, 5, 7}; };
    platform.EndProgram = [this] { ended = true; };
    platform.programFolder = QDW8_DATA_DIR;
    platform.settingsFolder = testing::TempDir();
    platform.serialClassFolder = QDW8_SOURCE_DIR "/tests/support/serial"; // no port is built in
    installSerial();
    installScreens();
}

ScriptedPlatform::~ScriptedPlatform() {
    checkAllAsked();
    ThePlatform() = Platform{};
    Screens() = ScreenFunctions{};
}

void ScriptedPlatform::installSerial() {
    SerialControl& serial = ThePlatform().MSComm1;
    serial.SetCommPort = [this](int port) { commPort = port; };
    serial.PortOpen = [this] { return portOpen; };
    serial.SetPortOpen = [this](bool open) {
        if (!open) {
            portOpen = false;
            inputBuffer.clear();
            events.emplace_back("close");
            return;
        }
        if (failingOpens != 0) {
            failingOpens -= failingOpens > 0 ? 1 : 0;
            events.emplace_back("open fails");
            throw Fault("the port can't be opened");
        }
        portOpen = true;
        openedPort = commPort;
    };
    serial.SetSettings = [this](const std::string&) {
        EXPECT_TRUE(portOpen) << "settings are written after the port has been opened";
    };
    serial.SetCDTimeout = [](int) {};
    serial.SetHandshaking = [](int) {};
    serial.Output = [this](const std::string& text) {
        if (!portOpen || outputFaults) {
            throw Fault("the line is gone");
        }
        EXPECT_TRUE(text.ends_with("\r\n")) << text;
        sent.push_back(text.substr(0, text.find("\r\n")));
        sentAt.push_back(now);
        events.push_back("send " + sent.back());
        if (!answers.empty()) {
            const auto pieces = answers.front();
            answers.pop_front();
            for (const auto& [ms, characters] : pieces) {
                arrive(ms, characters);
            }
        } else if (onOutput) {
            onOutput(text);
        }
    };
    serial.InBufferCount = [this] { return static_cast<int>(inputBuffer.size()); };
    serial.DropInput = [this] { inputBuffer.clear(); };
    serial.SetInputLen = [](int) {};
    serial.Input = [this] {
        if (!portOpen || inputFaults) {
            throw Fault("the line is gone");
        }
        return std::exchange(inputBuffer, {});
    };
    serial.SetLastWord = [this](const std::string& text) { lastWord = text; };
    serial.CommEvent = [] { return 0; };
}

void ScriptedPlatform::installScreens() {
    Screens().frmSelection = [this](const SelectionQuestion& question) {
        return ask(Describe(question)).answer;
    };
    const auto scripted = [this](const std::string& name) {
        return [this, name] {
            const Expected answer = ask(name);
            if (answer.script) {
                answer.script();
            }
        };
    };
    Screens().frmSelectPosiNo2 = scripted("frmSelectPosiNo2");
    Screens().frmSelectPosiNo3 = scripted("frmSelectPosiNo3");
    Screens().frmSelectPosiNo4 = [scripted](bool overlap) {
        scripted(overlap ? "frmSelectPosiNo4" : "frmSelectPosiNo4 without a range")();
    };
    Screens().frmDataShogo = [this] { return ask("frmDataShogo").answer; };
    Screens().frmSyogoKekka = scripted("frmSyogoKekka");
    Screens().frmDevice2 = scripted("frmDevice2");
    Screens().frmDevice3 = scripted("frmDevice3");
}

void ScriptedPlatform::after(std::int64_t ms, std::function<void()> action) {
    dues.push_back({now + ms, nextOrder++, nullptr, std::move(action)});
}

void ScriptedPlatform::arrive(std::int64_t ms, const std::string& characters) {
    after(ms, [this, characters] { received(characters); });
}

void ScriptedPlatform::answer(const std::string& reply, std::int64_t ms) {
    answerBytes({{ms, reply + "\r\n"}});
}

void ScriptedPlatform::answerBytes(std::vector<std::pair<std::int64_t, std::string>> pieces) {
    answers.push_back(std::move(pieces));
}

void ScriptedPlatform::breakLine() {
    if (portOpen) {
        portOpen = false;
        inputBuffer.clear();
        events.emplace_back("line breaks");
        ThePlatform().MSComm1.OnComm();
    }
}

void ScriptedPlatform::received(const std::string& characters) {
    inputBuffer += characters; // a driver may keep what comes while its port is closed
    if (portOpen) {
        ThePlatform().MSComm1.OnComm();
    }
}

void ScriptedPlatform::timerChanged(Timer& timer) {
    std::erase_if(dues, [&timer](const Due& due) { return due.timer == &timer; });
    if (timer.enabled && timer.interval > 0) {
        dues.push_back({now + timer.interval, nextOrder++, &timer, [&] { timer.routine(); }});
    }
}

/// Serves the one event that is due next, if it is due by `limit`; of those that are due at the
/// same time, timers come last.
bool ScriptedPlatform::step(std::int64_t limit) {
    const auto next = std::min_element(dues.begin(), dues.end(), [](const Due& a, const Due& b) {
        return std::tuple(a.at, a.timer != nullptr, a.order) <
               std::tuple(b.at, b.timer != nullptr, b.order);
    });
    if (next == dues.end() || next->at > limit) {
        return false;
    }
    const Due due = *next;
    dues.erase(next);
    now = std::max(now, due.at);
    if (due.timer != nullptr) {
        timerChanged(*due.timer);
    }
    due.action();
    return true;
}

void ScriptedPlatform::pump() {
    constexpr std::int64_t kOneDay = 86'400'000;
    // A periodic timer keeps a wait that hangs busy, so the clock itself has an end as well.
    if (now > 2 * kOneDay || !step(now + kOneDay)) {
        ADD_FAILURE() << "the program waits for something that never comes";
        throw WaitsForEver{};
    }
}

void ScriptedPlatform::run(std::int64_t ms) {
    const std::int64_t limit = now + ms;
    while (step(limit)) {
    }
    now = std::max(now, limit);
}

void ScriptedPlatform::expectBox(const std::string& text, BoxButtons buttons, BoxAnswer answer) {
    expected.push_back({Describe(BoxQuestion{text, buttons, {}, BoxIcon::None}),
                        {},
                        static_cast<std::int16_t>(answer),
                        {}});
}

void ScriptedPlatform::expectFile(const FileQuestion& question,
                                  const std::optional<FileAnswer>& answer) {
    expected.push_back({Describe(question), {}, 0, answer});
}

void ScriptedPlatform::expectSelection(const SelectionQuestion& question, std::int16_t answer) {
    expected.push_back({Describe(question), {}, answer, {}});
}

void ScriptedPlatform::expectScreen(const std::string& name, std::function<void()> script,
                                    std::int16_t answer) {
    expected.push_back({name, std::move(script), answer, {}});
}

void ScriptedPlatform::checkAllAsked() {
    if (recordsBoxes) {
        expected.clear();
    }
    for (const Expected& question : expected) {
        ADD_FAILURE() << "never asked: " << question.description;
    }
    expected.clear();
}

BoxAnswer ScriptedPlatform::askBox(const BoxQuestion& question) {
    const std::string description = Describe(question);
    if (!recordsBoxes || (!expected.empty() && expected.front().description == description)) {
        return static_cast<BoxAnswer>(ask(description).answer);
    }
    events.push_back(description);
    boxes.push_back(question.text);
    switch (question.buttons) {
    case BoxButtons::YesNo: return BoxAnswer::Yes;
    case BoxButtons::YesNoCancel: return BoxAnswer::No;
    default: return BoxAnswer::Ok;
    }
}

ScriptedPlatform::Expected ScriptedPlatform::ask(const std::string& description) {
    events.push_back(description);
    if (expected.empty()) {
        ADD_FAILURE() << "not expected: " << description;
        throw WaitsForEver{};
    }
    Expected next = expected.front();
    expected.pop_front();
    EXPECT_EQ(description, next.description);
    return next;
}

} // namespace qdw8::test
