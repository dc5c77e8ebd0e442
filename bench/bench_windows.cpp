// How long the user waits for a window: from the command to its picture. Needs no screen:
// QT_QPA_PLATFORM=offscreen.

#include "app/Module1.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "program/init_tables.h"
#include "windows/help/frmAbout.h"
#include "windows/help/frmHelp.h"
#include "windows/options/frmOptions2.h"
#include "windows/parameter/frmParameta2.h"
#include "windows/tables/frmGrp.h"
#include "windows/tables/frmSqMcr.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <stdexcept>

namespace qdw8 {
namespace {

constexpr std::int16_t kEnglish = 10000;

void InstallQuietPlatform() {
    Platform& platform = ThePlatform();
    platform = Platform{};
    platform.programFolder = QDW8_DATA_DIR;
    platform.TimerChanged = [](Timer&) {};
    platform.ShowMessageBox = [](const BoxQuestion& question) -> BoxAnswer {
        throw std::logic_error("unexpected box: " + question.text);
    };
    platform.Beep = [] {};
    platform.MSComm1.PortOpen = [] { return false; };
    platform.Settings.GetSetting = [](const auto&, const auto&, const auto& fallback) {
        return fallback;
    };
    InstallQtMachine();
}

/// Sees the first picture of a window.
class PaintWatch : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
    bool painted = false;
};

void Show(QWidget& window) {
    window.show();
}
void Show(frmParameta2& window) {
    window.open(false);
}

/// The manual at its longest page, in front of the question that was asked last there.
class HelpAtPage : public frmHelp {
public:
    HelpAtPage() : frmHelp(read()) {}

private:
    static Manual read() {
        ThePlatform().programFolder = QDW8_DATA_DIR "/..";
        return ReadManual().value();
    }
};
void Show(HelpAtPage& window) {
    window.open({{"MessageBox"}, QString::fromStdString(ResText(390))});
}

template<typename Window> void OpenUntilPainted(benchmark::State& state) {
    InstallQuietPlatform();
    InitTables();
    AxisOff.fill(kClear);
    LanguageBase = static_cast<std::int16_t>(state.range(0));
    for (auto _ : state) {
        PaintWatch watch;
        Window window;
        window.installEventFilter(&watch);
        Show(window);
        for (int round = 0; round < 10 && !watch.painted; ++round) {
            QApplication::processEvents();
        }
        if (!watch.painted) {
            state.SkipWithError("not painted");
            break;
        }
        state.PauseTiming();
        window.hide();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenUntilPainted<frmParameta2>)
    ->Arg(kEnglish)
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(OpenUntilPainted<frmGrp>)
    ->Arg(kEnglish)
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(OpenUntilPainted<frmSqMcr>)
    ->Arg(kEnglish)
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

BENCHMARK(OpenUntilPainted<frmOptions2>)
    ->Arg(kEnglish)
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(OpenUntilPainted<frmAbout>)
    ->Arg(kEnglish)
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(OpenUntilPainted<HelpAtPage>)
    ->Arg(kEnglish)
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
} // namespace qdw8
