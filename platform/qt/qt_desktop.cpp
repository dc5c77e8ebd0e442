#include "platform/platform.h"
#include "platform/qt/guarded_call.h"
#include "platform/qt/qt_platform.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QScreen>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace qdw8 {
namespace {

ScreenSize PrimaryScreenSize() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return {};
    }
    const double ratio = screen->devicePixelRatio();
    const QSize size = screen->geometry().size();
    return {static_cast<int>(std::lround(size.width() * ratio)),
            static_cast<int>(std::lround(size.height() * ratio))};
}

LocalTime TimeOfDay() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

/// The end comes out of the main window's unload, and the wait loops of an exchange may still be
/// on the stack below: to return would let them go on, and to run destructors would take windows
/// away under them. The settings are on the disk already; the port is handed back in order.
[[noreturn]] void EndTheProcess() {
    CallGuarded("EndProgram", [] {
        if (MSComm1().SetPortOpen) {
            MSComm1().SetPortOpen(false);
        }
    });
    std::fflush(nullptr);
    std::_Exit(0);
}

/// Lists and manual lie beside the program, or, where it is installed in a folder of programs, in
/// the one of their data: bin and share stand side by side.
QString FolderOfProgram() {
    const QString beside = QCoreApplication::applicationDirPath();
    const QString installed = QDir::cleanPath(beside + QStringLiteral("/../share/qd-w8"));
    return QDir(installed).exists() ? installed : beside;
}

/// More than any table takes.
constexpr qsizetype kClipboardBound = qsizetype{1} << 20;

/// What lies beyond the bound goes by whole rows, or at least by whole cells: half a number would
/// be another number. A text without an end of either in its second half is cut plainly: what is
/// left of its last cell is too long for any number, and the whole too long for an edit box.
QString Bounded(const QString& text) {
    if (text.size() <= kClipboardBound) {
        return text;
    }
    const QString start = text.first(kClipboardBound);
    for (const QChar end : {u'\n', u'\t'}) {
        const qsizetype whole = start.lastIndexOf(end) + 1;
        if (whole > kClipboardBound / 2) {
            return start.first(whole);
        }
    }
    return start;
}

/// The clipboard's text since it changed last. It comes from another program piece by piece, and
/// always as a whole: it is asked for once and not again for each look and paste.
std::optional<std::string> keptClipboard; // NOLINT: one clipboard for the process

std::string ClipboardText() {
    if (!keptClipboard) {
        keptClipboard = Bounded(QGuiApplication::clipboard()->text()).toStdString();
    }
    return *keptClipboard;
}

} // namespace

void InstallQtDesktop() {
    Platform& platform = ThePlatform();
    keptClipboard.reset();
    // Before any window listens: who hears of the change must find the new text.
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, qApp,
                     [] { keptClipboard.reset(); });
    platform.TheClipboard.GetText = ClipboardText;
    platform.TheClipboard.SetText = [](const std::string& text) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    };
    platform.TheClipboard.Clear = [] { QGuiApplication::clipboard()->clear(); };
    platform.Beep = [] { QApplication::beep(); };
    platform.GetScreenSize = PrimaryScreenSize;
    platform.GetLocalTime = TimeOfDay;
    platform.EndProgram = EndTheProcess;
    platform.programFolder = FolderOfProgram().toStdString();
}

} // namespace qdw8
