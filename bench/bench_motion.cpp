// Teaching at 9600 baud over a pseudo-terminal, with its window on the screen: how long a release
// takes to its stop and a press to its first frame, and how exact the ticks are.
//
//     bench_motion [releases]     1000 of them if nothing is said, about twelve minutes
//
// A frame is on the line from the moment at which the program hands it over, a character a
// millisecond; the line is idle then.

#include "app/screens.h"
#include "app/waits.h"
#include "link/port.h"
#include "motion/teaching.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "program/init_tables.h"
#include "windows/motion/frmJOG.h"

#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr double kStopOnLine = 5 * 10 * 1e3 / 9600; ///< ms of "0SP" and its line end

double Now() {
    return std::chrono::duration<double, std::milli>(Clock::now().time_since_epoch()).count();
}

double sent = 0; ///< when the frame that is waited for went out; 0: not yet
std::string awaited;

void NoteFrames() {
    qdw8::MSComm1().Output = [send = qdw8::MSComm1().Output](const std::string& text) {
        if (sent == 0 && !awaited.empty() && text.starts_with(awaited)) {
            sent = Now();
        }
        send(text);
    };
}

void Await(const char* frame) {
    awaited = frame;
    sent = 0;
}

void PumpUntil(const std::function<bool()>& condition) {
    while (!condition()) {
        qdw8::PumpEvents();
    }
}

void Tell(const char* title, std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const auto at = [&values](double share) {
        const auto last = static_cast<double>(values.size() - 1);
        return values[static_cast<std::size_t>(share * last)];
    };
    std::printf("%-46s median %.1f ms, 99 of 100 %.1f ms, worst %.1f ms of %zu\n", title, at(0.5),
                at(0.99), at(1), values.size());
}

/// How far the ticks of a timer stand from their places.
void MeasureTicks(const char* title, qdw8::Timer& timer, std::size_t count) {
    std::vector<double> shifts;
    double last = 0;
    const std::function<void()> routine = timer.routine;
    timer.routine = [&] {
        const double now = Now();
        if (last != 0) {
            shifts.push_back(std::abs(now - last - timer.interval));
        }
        last = now;
        routine();
    };
    PumpUntil([&] { return shifts.size() >= count; });
    timer.routine = routine;
    Tell(title, shifts);
}

int Measure(qdw8::frmJOG& window, std::size_t count) {
    qdw8::cmdJOGST_Click();
    if (qdw8::TheTeachingForm().state != qdw8::Teaching::Started) {
        return 1;
    }
    MeasureTicks("shift of the ticks of 50 ms", qdw8::timerTusin, 400);
    MeasureTicks("shift of the ticks of 100 ms", qdw8::TimerBosoKansi, 200);
    std::mt19937 random(1); // NOLINT: the same moments each time
    const auto between = [&random](int from, int to) {
        return static_cast<std::int16_t>(std::uniform_int_distribution(from, to)(random));
    };
    std::vector<double> presses;
    std::vector<double> releases;
    const auto buttons = {window.findChild<QPushButton*>("cmdJOG(0)"),
                          window.findChild<QPushButton*>("cmdJOG(1)")};
    while (releases.size() < count) {
        for (QPushButton* button : buttons) { // there and back
            qdw8::MsecTimer(between(1, 60));
            Await("0RA");
            double begin = Now();
            QTest::mousePress(button, Qt::LeftButton);
            PumpUntil([] { return sent != 0; });
            presses.push_back(sent - begin);
            qdw8::MsecTimer(between(20, 320));
            Await("0SP");
            begin = Now();
            QTest::mouseRelease(button, Qt::LeftButton);
            PumpUntil([] { return sent != 0; });
            releases.push_back(sent - begin + kStopOnLine);
            PumpUntil([] {
                return qdw8::TheTeachingForm().stop == qdw8::StopSign::None &&
                       qdw8::JogReady == qdw8::kSet;
            });
        }
    }
    Tell("press to the first character of 0RA", presses);
    Tell("release to the last character of 0SP", releases);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    qdw8::InstallQtPlatform();
    qdw8::ThePlatform().settingsFolder = folder.path().toStdString();
    qdw8::ThePlatform().ShowMessageBox = [](const qdw8::BoxQuestion& question) {
        std::fprintf(stderr, "%s\n", question.text.c_str());
        return qdw8::BoxAnswer::Ok;
    };
    qdw8::InitTables();
    NoteFrames();

    const QString link = folder.filePath("ports/com1");
    std::filesystem::create_directories(folder.filePath("ports").toStdString());
    QProcess simulator;
    simulator.start(QDW8_SIMULATOR, {"--link", link});
    if (!simulator.waitForReadyRead(5000)) {
        std::fprintf(stderr, "the simulator doesn't come up\n");
        return 1;
    }
    int result = 1;
    {
        qdw8::frmJOG window(nullptr);
        qdw8::Screens().frmJOG = [&window] { window.showState(); };
        window.show();
        result = Measure(window, argc > 1 ? std::stoul(argv[1]) : 1000);
        qdw8::UnloadJog();
        qdw8::Screens().frmJOG = {};
    }
    simulator.terminate();
    simulator.waitForFinished();
    return result;
}
