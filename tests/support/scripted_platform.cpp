#include "support/scripted_platform.h"

#include "platform/fault.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace qdw8::test {
namespace {

std::string WithoutLineEnd(std::string text) {
    if (text.ends_with("\r\n")) {
        text.resize(text.size() - 2);
    }
    return text;
}

const char* NameOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::Ok: return "Ok";
    case BoxButtons::OkCancel: return "OkCancel";
    case BoxButtons::YesNo: return "YesNo";
    case BoxButtons::YesNoCancel: return "YesNoCancel";
    }
    return "?";
}

} // namespace

std::string Describe(const BoxQuestion& question) {
    return "box " + std::string(NameOf(question.buttons)) + ": " + question.text +
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
    platform.Settings.GetSetting = [this](const std::string&, const std::string& key,
                                          const std::string& fallback) {
        const auto found = settings.find(key);
        return found == settings.end() ? fallback : found->second;
    };
    platform.Settings.SaveSetting = [this](const std::string&, const std::string& key,
                                           const std::string& value) { settings[key] = value; };
    platform.TheClipboard.GetText = [this] { return clipboard; };
    platform.TheClipboard.SetText = [this](const std::string& text) { clipboard = text; };
    platform.TheClipboard.Clear = [this] { clipboard.clear(); };
    platform.ImeSetOpenStatus = [this](bool open) { imeOpen = open; };
    platform.Beep = [this] {
        ++beeps;
        events.emplace_back("beep");
    };
    platform.GetScreenSize = [this] { return screen; };
    platform.EndProgram = [this] {
        ended = true;
        events.emplace_back("end");
    };
    platform.programFolder = QDW8_DATA_DIR;
    platform.settingsFolder = testing::TempDir();
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
        events.push_back("open " + std::to_string(commPort));
    };
    serial.SetSettings = [this](const std::string& text) {
        EXPECT_TRUE(portOpen) << "settings are written after the port has been opened";
        events.push_back("settings " + text);
    };
    serial.SetCDTimeout = [](int) {};
    serial.SetHandshaking = [](int) {};
    serial.Output = [this](const std::string& text) {
        if (!portOpen || outputFaults) {
            throw Fault("the line is gone");
        }
        sent.push_back(WithoutLineEnd(text));
        sentAt.push_back(now);
        events.push_back("send " + sent.back());
        EXPECT_TRUE(text.ends_with("\r\n")) << text;
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
    actions.push_back({now + ms, nextOrder++, std::move(action)});
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
    if (!portOpen) {
        return; // nobody listens at the end of a closed port
    }
    events.push_back("receive " + WithoutLineEnd(characters));
    inputBuffer += characters;
    ThePlatform().MSComm1.OnComm();
}

void ScriptedPlatform::timerChanged(Timer& timer) {
    if (timer.enabled && timer.interval > 0) {
        timers[&timer] = {now + timer.interval, nextOrder++, {}};
    } else {
        timers.erase(&timer);
    }
}

/// Serves the one event that is due next, if it is due by `limit`.
bool ScriptedPlatform::step(std::int64_t limit) {
    const auto earlier = [](const Due& a, const Due& b) {
        return std::pair(a.at, a.order) < std::pair(b.at, b.order);
    };
    const auto action = std::min_element(actions.begin(), actions.end(), earlier);
    const auto timer =
        std::min_element(timers.begin(), timers.end(),
                         [&](const auto& a, const auto& b) { return earlier(a.second, b.second); });
    const bool hasTimer = timer != timers.end();
    const bool hasAction = action != actions.end();
    if (hasAction && action->at <= limit && (!hasTimer || action->at <= timer->second.at)) {
        now = std::max(now, action->at);
        const auto run = std::move(action->action);
        actions.erase(action);
        run();
        return true;
    }
    if (hasTimer && timer->second.at <= limit) {
        now = std::max(now, timer->second.at);
        Timer& due = *timer->first;
        timer->second = {now + due.interval, nextOrder++, {}};
        due.routine();
        return true;
    }
    return false;
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
    now = limit;
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

void ScriptedPlatform::expectScreen(const std::string& name, std::function<void()> script) {
    expected.push_back({name, std::move(script), 0, {}});
}

void ScriptedPlatform::expectDataShogo(std::int16_t answer) {
    expected.push_back({"frmDataShogo", {}, answer, {}});
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
