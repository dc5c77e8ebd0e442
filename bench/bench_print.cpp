// How long a print of all positions takes: laid out and drawn into a PDF file, and looked at first.
// Needs no screen: QT_QPA_PLATFORM=offscreen.

#include "app/Module1.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "print/posi_print.h"
#include "print/print_page.h"
#include "program/init_tables.h"
#include "windows/print/frmPrintPreview.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace qdw8 {
namespace {

PosiPrint AllPositions() {
    PosiPrint print{"job.qdd", "", {}, {}};
    print.devices.fill("QD- 44L-100_ ");
    for (int position = 1; position <= 999; ++position) {
        PosiPrintRow row{position, {}};
        for (int column = 0; column < kComment; ++column) {
            row.cells[static_cast<std::size_t>(column)] =
                ColumnOf(column).item == kPosi ? " " + std::to_string(position) + ".005" : "30";
        }
        row.cells[kComment] = "pick up 位置";
        print.rows.push_back(row);
    }
    return print;
}

void Begin() {
    ThePlatform() = Platform{};
    ThePlatform().TimerChanged = [](Timer&) {};
    ThePlatform().GetLocalTime = [] { return LocalTime{2024, 11, 21, 9, 5, 7}; };
    InstallQtPrinter();
    InitTables();
    LanguageBase = 10000;
    DispMmFlag = kSet;
}

void LayOut(const PosiPrint& print) {
    ThePlatform().ThePrinter.SetFontName("MS GOTHIC");
    PrinterSetup(kPosiPageLines);
    PrintPosiPages(print);
}

void LayOut(benchmark::State& state) {
    Begin();
    const PosiPrint print = AllPositions();
    for (auto _ : state) {
        LayOut(print);
        ThePlatform().ThePrinter.KillDoc();
    }
}
BENCHMARK(LayOut)->Unit(benchmark::kMillisecond);

void PrintToPdf(benchmark::State& state) {
    Begin();
    const PosiPrint print = AllPositions();
    const QTemporaryDir folder;
    SetPrinterOutputFile(folder.filePath("all.pdf").toStdString());
    for (auto _ : state) {
        LayOut(print);
        ThePlatform().ThePrinter.EndDoc({});
    }
    state.counters["pages"] = PrintPageNo;
}
BENCHMARK(PrintToPdf)->Unit(benchmark::kMillisecond)->UseRealTime();

void PreviewUntilPainted(benchmark::State& state) {
    Begin();
    const PosiPrint print = AllPositions();
    for (auto _ : state) {
        LayOut(print);
        frmPrintPreview window;
        window.show();
        window.grab();
        QApplication::processEvents();
        state.PauseTiming();
        window.hide();
        ThePlatform().ThePrinter.KillDoc();
        state.ResumeTiming();
    }
}
BENCHMARK(PreviewUntilPainted)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace qdw8

int main(int count, char** words) {
    const QApplication application(count, words);
    benchmark::Initialize(&count, words);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
