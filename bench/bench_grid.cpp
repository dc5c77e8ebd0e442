// How long the user waits for the grid: from the rules to the picture. Needs no screen:
// QT_QPA_PLATFORM=offscreen.

#include "app/Module1.h"
#include "app/command_states.h"
#include "app/screens.h"
#include "device/axis_device.h"
#include "device/device_reset.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/grid_editor.h"
#include "position/posi_table.h"
#include "position/position_reset.h"
#include "program/commands.h"
#include "windows/main/frmMain.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTableView>
#include <benchmark/benchmark.h>
#include <memory>
#include <stdexcept>

namespace qdw8 {
namespace {

void InstallQuietPlatform() {
    Platform& platform = ThePlatform();
    platform = Platform{};
    platform.TimerChanged = [](Timer&) {};
    platform.ShowMessageBox = [](const BoxQuestion& question) -> BoxAnswer {
        throw std::logic_error("unexpected box: " + question.text);
    };
    platform.Beep = [] {};
    platform.ImeSetOpenStatus = [](bool) {};
    platform.TheClipboard.GetText = [] { return std::string(); };
}

/// The main window over 999 rows of four axes, as large as `width` by `height`.
std::unique_ptr<frmMain> ShowFullGrid(int width, int height) {
    Screens() = ScreenFunctions{}; // those of a window before this one are gone
    InstallQuietPlatform();
    ResetModule1();
    LanguageBase = 10000;
    AxisOff.fill(kClear);
    ResetCommandStates();
    ResetDevices();
    ResetPositions();
    for (AxisDevice& device : DevSetting) {
        device = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 20000, 100};
    }
    for (std::size_t index = 0; index < kCommands; ++index) {
        SetBuilt(static_cast<Command>(index));
    }
    auto window =
        std::make_unique<frmMain>(Commands(), MainWindowEvents{{}, {}, {}, flgdData_RowColChange});
    Screens().flgdData = [main = window.get()] { main->showGrid(); };
    Screens().flgdDataFocus = [main = window.get()] { main->focusGrid(); };
    Screens().frmMainCommands = [main = window.get()] { main->showCommands(); };
    Screens().frmMainPanel = [main = window.get()] { main->showPanel(); };
    window->loadResources();
    window->resize(width, height);
    window->show();
    window->activateWindow();
    ClearPosiTable();
    GridFirst = PosiFirst = 1;
    GridLast = PosiLast = kLastPosition;
    for (std::size_t row = 1; row < kPosiRows; ++row) {
        for (double& pulse : PosiUnitTable[row].pulse) {
            pulse = static_cast<double>(row * 20);
        }
        PosiTable[row].comment = "position";
    }
    ConvertTableToMm();
    QdDataHyoji_3();
    QApplication::processEvents();
    return window;
}

void Press(Qt::Key key, const char* text = "") {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) {
        throw std::logic_error("nothing has the focus");
    }
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString::fromLatin1(text));
    QApplication::sendEvent(focus, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, QString::fromLatin1(text));
    QApplication::sendEvent(focus, &release);
}

/// Counts how often the cells of the grid are painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(const frmMain& window) {
        window.findChild<QTableView*>(QStringLiteral("flgdData"))
            ->viewport()
            ->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int paints = 0;
};

/// Everything that is due, the paint among it.
void Settle() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

/// From the Enter in the edit box to the cell that is painted again.
void CommitOfOneCell(benchmark::State& state) {
    const auto window =
        ShowFullGrid(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    window->focusGrid();
    PaintWatch watch(*window);
    int value = 1;
    for (auto _ : state) {
        state.PauseTiming();
        GoToCell(10, 1);
        Settle();
        const std::string typed = std::to_string(value = value % 9 + 1);
        Press(Qt::Key_1, typed.c_str());
        Settle();
        if (!flgdData().edit.open) {
            state.SkipWithError("no edit");
            break;
        }
        watch.paints = 0;
        state.ResumeTiming();
        Press(Qt::Key_Return, "\r");
        Settle();
        state.PauseTiming();
        if (GridText(10, 1) != typed || watch.paints == 0) {
            state.SkipWithError("not committed, or not painted");
            break;
        }
        state.ResumeTiming();
    }
}
BENCHMARK(CommitOfOneCell)->Args({1024, 717})->Args({1920, 1080})->Unit(benchmark::kMillisecond);

/// From the key that begins an edit to the edit box on the screen.
void FirstKeyOfAnEdit(benchmark::State& state) {
    const auto window = ShowFullGrid(1920, 1080);
    window->focusGrid();
    for (auto _ : state) {
        state.PauseTiming();
        CancelEdit();
        GoToCell(10, 1);
        Settle();
        state.ResumeTiming();
        Press(Qt::Key_5, "5");
        Settle();
    }
    CancelEdit();
}
BENCHMARK(FirstKeyOfAnEdit)->Unit(benchmark::kMillisecond);

/// The table into the grid, and the part of it that is seen onto the screen. The unit changes every
/// time, so every position is another text.
void FillAndPaint(benchmark::State& state) {
    const auto window =
        ShowFullGrid(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    PaintWatch watch(*window);
    for (auto _ : state) {
        watch.paints = 0;
        DispMmFlag = FlagOf(!IsSet(DispMmFlag));
        QdDataHyoji_3();
        Settle();
        if (watch.paints == 0) {
            state.SkipWithError("not painted");
            break;
        }
    }
}
BENCHMARK(FillAndPaint)->Args({1024, 717})->Args({1920, 1080})->Unit(benchmark::kMillisecond);

} // namespace
} // namespace qdw8
