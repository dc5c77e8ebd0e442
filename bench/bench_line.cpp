// 999 rows over a pseudo-terminal, with the transfer dialog on the screen: against the time that
// the characters take on the wire, and against a bare write-and-read loop on the same terminal.
//
//     bench_line paced      one read at 9600 baud, about a minute
//     bench_line single     the same over a driver that delivers single characters
//     bench_line window     the same beside the simulator's window, which is painted meanwhile
//     bench_line write      one write of the same rows at 9600 baud
//     bench_line blocks     all parameter blocks of four axes at 9600 baud
//     bench_line groups     all groups at 9600 baud
//     bench_line macros     all sequence macros at 9600 baud
//     bench_line unpaced    reads and bare loops in turn, as fast as both ends can

#include "app/Module1.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/screens.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "device/device_reset.h"
#include "link/link_reset.h"
#include "link/port.h"
#include "parameter/para_reset.h"
#include "parameter/para_transfer.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "position/posi_table.h"
#include "position/posi_transfer.h"
#include "position/posi_write.h"
#include "position/position_reset.h"
#include "tables/groups.h"
#include "tables/macros.h"
#include "tables/table_transfer.h"
#include "tables/tables_reset.h"
#include "windows/dialogs/frmTrance.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRows = 999;
constexpr int kBlocks = 13;

/// Time that characters take on the wire, at 10 bits each.
constexpr double WireSeconds(int characters) {
    return characters * 10 / 9600.0;
}
constexpr double kReadSeconds = kRows * WireSeconds(8 + 48);
constexpr double kWriteSeconds = kRows * WireSeconds(48 + 8);
constexpr double kBlockSeconds = kBlocks * WireSeconds(6 + 38);
constexpr double kGroupSeconds = 99 * WireSeconds(7 + 13);
constexpr double kMacroSeconds = 20 * WireSeconds(7 + 39);

double SecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

double ProcessorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The program's own read, from the first frame to the closed dialog. Negative: it failed.
double ReadTable() {
    qdw8::PosiFirst = 1;
    qdw8::PosiLast = kRows;
    const auto begin = Clock::now();
    const bool good = qdw8::ReadPosidataFromCt() == qdw8::LineResult::Done;
    return good ? SecondsSince(begin) : -1;
}

/// The same characters with nothing around them.
double BareLoop(const std::string& device) {
    const int line = ::open(device.c_str(), O_RDWR | O_NOCTTY);
    if (line < 0) {
        return -1;
    }
    const auto begin = Clock::now();
    for (int row = 1; row <= kRows; ++row) {
        std::array<char, 64> text{};
        const int length = std::snprintf(text.data(), text.size(), "0RP%03X\r\n", row);
        if (::write(line, text.data(), static_cast<std::size_t>(length)) != length) {
            break;
        }
        std::size_t got = 0;
        while (got < 48) {
            const ssize_t more = ::read(line, text.data() + got, 48 - got);
            if (more <= 0) {
                ::close(line);
                return -1;
            }
            got += static_cast<std::size_t>(more);
        }
    }
    const double seconds = SecondsSince(begin);
    ::close(line);
    return seconds;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The rows just read, written back.
double WriteTable() {
    qdw8::PosiStageToTable();
    for (std::size_t row = 1; row <= kRows; ++row) {
        for (std::size_t axis = 0; axis < qdw8::kAxes; ++axis) {
            qdw8::PosiTable[row].number[4 * axis + 3] = qdw8::PosiUnitTable[row].pulse[axis];
        }
    }
    const auto begin = Clock::now();
    const bool good = qdw8::WritePosidataToCt(qdw8::TakePosiFrames()) == qdw8::LineResult::Done;
    return good ? SecondsSince(begin) : -1;
}

double ReadBlocks() {
    const auto begin = Clock::now();
    const bool good = qdw8::ReadAllBlocks() == 0;
    return good ? SecondsSince(begin) : -1;
}

double ReadSmallTable(const qdw8::SmallTable& table) {
    const auto begin = Clock::now();
    const qdw8::LineBatch batch;
    const bool good = qdw8::ReadTableFromCt(table) == qdw8::LineResult::Done;
    return good ? SecondsSince(begin) : -1;
}
double ReadGroups() {
    return ReadSmallTable(qdw8::Groups());
}
double ReadMacros() {
    return ReadSmallTable(qdw8::Macros());
}

int MeasurePaced(const char* what, double wireSeconds, double (*run)()) {
    const double processorBefore = ProcessorSeconds();
    const double seconds = run();
    if (seconds < 0) {
        return 1;
    }
    std::printf("%s at 9600 baud: %.2f s, wire time %.2f s, %.4f times; processor %.2f %%\n", what,
                seconds, wireSeconds, seconds / wireSeconds,
                100 * (ProcessorSeconds() - processorBefore) / seconds);
    return 0;
}

int MeasureUnpaced(const std::string& device) {
    std::vector<double> reads;
    std::vector<double> loops;
    for (int round = 0; round < 9; ++round) {
        reads.push_back(ReadTable());
        qdw8::CloseCtPortForce();
        loops.push_back(BareLoop(device));
        if (reads.back() < 0 || loops.back() < 0) {
            return 1;
        }
    }
    const double read = Median(reads);
    const double loop = Median(loops);
    std::printf("999 rows unpaced: %.1f ms (%.3f ms a row), bare loop %.1f ms, %.2f times\n",
                read * 1e3, read * 1e3 / kRows, loop * 1e3, read / loop);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::string mode = argc == 2 ? argv[1] : "";
    if (mode != "paced" && mode != "single" && mode != "window" && mode != "write" &&
        mode != "blocks" && mode != "groups" && mode != "macros" && mode != "unpaced") {
        std::fprintf(stderr,
                     "usage: bench_line paced|single|window|write|blocks|groups|macros|unpaced\n");
        return 2;
    }
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    qdw8::InstallQtPlatform();
    qdw8::ThePlatform().settingsFolder = folder.path().toStdString();
    qdw8::ThePlatform().ShowMessageBox = [](const qdw8::BoxQuestion& question) {
        std::fprintf(stderr, "%s\n", question.text.c_str());
        return qdw8::BoxAnswer::Ok;
    };
    qdw8::ResetModule1();
    qdw8::ResetCommandStates();
    qdw8::ResetMainPanel();
    qdw8::ResetTransferDialog();
    qdw8::ResetModule3Tusin();
    qdw8::ResetDevices();
    qdw8::ResetParameters();
    qdw8::ResetPositions();
    qdw8::ResetTables();
    qdw8::PortOccupyFlag = qdw8::kSet;
    qdw8::frmTrance dialog;
    qdw8::Screens().frmTrance = [&dialog] { dialog.showState(); };

    const QString link = folder.filePath("ports/com1");
    std::filesystem::create_directories(folder.filePath("ports").toStdString());
    QStringList options{"--link", link};
    if (mode == "unpaced") {
        options << "--unpaced";
    }
    if (mode == "single") {
        options << "--handful"
                << "1";
    }
    if (mode == "window") {
        options << "--window";
    }
    QProcess simulator;
    simulator.start(QDW8_SIMULATOR, options);
    if (!simulator.waitForReadyRead(5000)) {
        std::fprintf(stderr, "the simulator doesn't come up\n");
        return 1;
    }
    int result = 1;
    if (mode == "paced" || mode == "single" || mode == "window") {
        result = MeasurePaced("999 rows read", kReadSeconds, ReadTable);
    } else if (mode == "write") {
        result = ReadTable() < 0 ? 1 : MeasurePaced("999 rows written", kWriteSeconds, WriteTable);
    } else if (mode == "blocks") {
        result = MeasurePaced("13 blocks read", kBlockSeconds, ReadBlocks);
    } else if (mode == "groups") {
        result = MeasurePaced("99 groups read", kGroupSeconds, ReadGroups);
    } else if (mode == "macros") {
        result = MeasurePaced("20 macros read", kMacroSeconds, ReadMacros);
    } else {
        result = MeasureUnpaced(link.toStdString());
    }
    simulator.terminate();
    simulator.waitForFinished();
    return result;
}
