#include "platform/platform.h"
#include "platform/qt/guarded_call.h"
#include "platform/qt/qt_platform.h"

#include <QApplication>
#include <QClipboard>
#include <QScreen>

#include <cmath>
#include <cstdio>
#include <cstdlib>

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

/// More than any table takes.
constexpr qsizetype kClipboardBound = qsizetype{1} << 20;

/// The clipboard may hold any number of characters. What lies beyond the bound goes by whole rows,
/// or at least by whole cells: half a number would be another number.
std::string ClipboardText() {
    const QString text = QGuiApplication::clipboard()->text();
    if (text.size() <= kClipboardBound) {
        return text.toStdString();
    }
    const QStringView start = QStringView(text).first(kClipboardBound);
    const qsizetype rows = start.lastIndexOf(u'\n') + 1;
    const qsizetype cells = rows > 0 ? rows : start.lastIndexOf(u'\t') + 1;
    return start.first(cells > 0 ? cells : kClipboardBound).toString().toStdString();
}

} // namespace

void InstallQtDesktop() {
    Platform& platform = ThePlatform();
    platform.TheClipboard.GetText = ClipboardText;
    platform.TheClipboard.SetText = [](const std::string& text) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    };
    platform.TheClipboard.Clear = [] { QGuiApplication::clipboard()->clear(); };
    platform.Beep = [] { QApplication::beep(); };
    platform.GetScreenSize = PrimaryScreenSize;
    platform.EndProgram = EndTheProcess;
    platform.programFolder = QCoreApplication::applicationDirPath().toStdString();
}

} // namespace qdw8
