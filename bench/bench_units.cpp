// How long the rules take by themselves, without a window or a line.

#include "app/Module1.h"
#include "app/command_states.h"
#include "app/screens.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "device/device_reset.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_check.h"
#include "position/posi_file.h"
#include "position/posi_reader.h"
#include "position/posi_table.h"
#include "position/posi_verify.h"
#include "position/position_reset.h"
#include "tables/groups.h"
#include "tables/grp_table.h"
#include "tables/macros.h"
#include "tables/sm_table.h"
#include "tables/table_file.h"
#include "tables/tables_reset.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <stdexcept>

namespace qdw8 {
namespace {

/// Four axes in use and a grid of 999 clean rows.
void ShowFullTable(bool mm) {
    ThePlatform() = Platform{};
    ThePlatform().TimerChanged = [](Timer&) {};
    ThePlatform().ShowMessageBox = [](const BoxQuestion& question) -> BoxAnswer {
        throw std::logic_error("unexpected box: " + question.text);
    };
    ThePlatform().ImeSetOpenStatus = [](bool) {};
    ResetModule1();
    ResetCommandStates();
    ResetDevices();
    ResetPositions();
    for (AxisDevice& device : DevSetting) {
        device = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 20000, 100};
    }
    DispMmFlag = FlagOf(mm);
    ClearPosiTable();
    GridFirst = PosiFirst = 1;
    GridLast = PosiLast = kLastPosition;
    for (std::size_t row = 1; row < kPosiRows; ++row) {
        for (double& pulse : PosiUnitTable[row].pulse) {
            pulse = static_cast<double>(row * 20);
        }
    }
    ConvertTableToMm();
    QdDataHyoji_3();
}

void CheckAndCommit(benchmark::State& state) {
    ShowFullTable(state.range(0) != 0);
    for (auto _ : state) {
        if (PosiDataCheck3() != PosiCheck::Committed) {
            state.SkipWithError("the rows are not clean");
        }
    }
}
BENCHMARK(CheckAndCommit)->ArgName("mm")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void FillGrid(benchmark::State& state) {
    ShowFullTable(state.range(0) != 0);
    for (auto _ : state) {
        QdDataHyoji_3();
    }
}
BENCHMARK(FillGrid)->ArgName("mm")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void SaveFile(benchmark::State& state) {
    ShowFullTable(false);
    PosiFolder = std::filesystem::temp_directory_path().string();
    for (auto _ : state) {
        if (SaveFileAs2("qdw8-bench.qdd") != 0) {
            state.SkipWithError("not saved");
        }
    }
    std::filesystem::remove(PosiFolder + "/qdw8-bench.qdd");
}
BENCHMARK(SaveFile)->Unit(benchmark::kMillisecond);

void ReadFile(benchmark::State& state) {
    ShowFullTable(false);
    PosiFolder = std::filesystem::temp_directory_path().string();
    const std::string path = PosiFolder + "/qdw8-bench.qdd";
    if (PosiDataCheck3() != PosiCheck::Committed || SaveFileAs2("qdw8-bench.qdd") != 0) {
        state.SkipWithError("no file to read");
    }
    for (auto _ : state) {
        if (ReadPosiFile(path) != 0) {
            state.SkipWithError("not read");
        }
    }
    std::filesystem::remove(path);
}
BENCHMARK(ReadFile)->Unit(benchmark::kMillisecond);

/// A verify with a file that holds what the grid shows: the check that commits the grid, the
/// reading and the comparison of 999 rows.
void VerifyWithFile(benchmark::State& state) {
    ShowFullTable(false);
    PosiFolder = std::filesystem::temp_directory_path().string();
    const std::string path = PosiFolder + "/qdw8-bench.qdd";
    if (PosiDataCheck3() != PosiCheck::Committed || SaveFileAs2("qdw8-bench.qdd") != 0) {
        state.SkipWithError("no file to verify with");
    }
    int good = 0;
    ThePlatform().CommonDialog1.ShowFile = [&path](const FileQuestion&) {
        return FileAnswer{path, "qdw8-bench.qdd"};
    };
    ThePlatform().ShowMessageBox = [&good](const BoxQuestion&) {
        ++good;
        return BoxAnswer::Ok;
    };
    Screens().frmSelectPosiNo4 = [](bool) {};
    for (auto _ : state) {
        PosiDataFileShogo2();
    }
    if (good != static_cast<int>(state.iterations())) {
        state.SkipWithError("the file is not as the grid");
    }
    Screens() = ScreenFunctions{};
    std::filesystem::remove(path);
}
BENCHMARK(VerifyWithFile)->Unit(benchmark::kMillisecond);

/// All groups and all steps hold something good.
const SmallTable& FilledTable(bool macros) {
    ResetTables();
    GrpTable.fill({998, 999, 0});
    for (SmMacro& macro : SmTable) {
        macro.fill({6, 9});
    }
    return macros ? Macros() : Groups();
}

void CheckSmallTable(benchmark::State& state) {
    const SmallTable& table = FilledTable(state.range(0) != 0);
    for (auto _ : state) {
        if (table.check() != 0) {
            state.SkipWithError("the table is not good");
        }
    }
}
BENCHMARK(CheckSmallTable)->ArgName("macros")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void SaveSmallTable(benchmark::State& state) {
    const SmallTable& table = FilledTable(state.range(0) != 0);
    const std::string path = std::filesystem::temp_directory_path() / "qdw8-bench.table";
    for (auto _ : state) {
        if (WriteTableFile(table, path) != 0) {
            state.SkipWithError("not saved");
        }
    }
    std::filesystem::remove(path);
}
BENCHMARK(SaveSmallTable)->ArgName("macros")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void ReadSmallTable(benchmark::State& state) {
    const SmallTable& table = FilledTable(state.range(0) != 0);
    const std::string path = std::filesystem::temp_directory_path() / "qdw8-bench.table";
    if (WriteTableFile(table, path) != 0) {
        state.SkipWithError("no file to read");
    }
    for (auto _ : state) {
        if (ReadTableFile(table, path) != FileRead::Good) {
            state.SkipWithError("not read");
        }
    }
    std::filesystem::remove(path);
}
BENCHMARK(ReadSmallTable)->ArgName("macros")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void LookUpDevice(benchmark::State& state) {
    ThePlatform() = Platform{};
    ThePlatform().programFolder = QDW8_DATA_DIR;
    for (auto _ : state) {
        benchmark::DoNotOptimize(DeviceInList("J52", "L", 300));
    }
}
BENCHMARK(LookUpDevice)->Unit(benchmark::kMicrosecond);

void PulsesToMmAndBack(benchmark::State& state) {
    double value = 12345;
    for (auto _ : state) {
        const double mm = PulseToMm(6, 400, value);
        benchmark::DoNotOptimize(value = MmToPulse(6, 400, mm));
    }
}
BENCHMARK(PulsesToMmAndBack)->Unit(benchmark::kNanosecond);

} // namespace
} // namespace qdw8
