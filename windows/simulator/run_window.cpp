#include "windows/simulator/run_window.h"

#include "simulator/serve.h"
#include "windows/simulator/texts.h"
#include "windows/simulator/window.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QStyleFactory>
#include <cstdio>
#include <cstdlib>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace qdk8 {
namespace {

/// The toolkit would end the process with a core.
bool HasDesktop() {
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            return true;
        }
    }
    return false;
}

/// Slides on their strokes.
QIcon DrawIcon() {
    constexpr int kSide = 64;
    QPixmap picture(kSide, kSide);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x2A6DB0));
    painter.drawRoundedRect(2, 2, kSide - 4, kSide - 4, 8, 8);
    int place = 10;
    for (const int top : {14, 30, 46}) {
        painter.setBrush(QColor(0xBFD6EA));
        painter.drawRect(8, top, kSide - 16, 4);
        painter.setBrush(Qt::white);
        painter.drawRoundedRect(place, top - 4, 14, 12, 2, 2);
        place += 15;
    }
    return QIcon(picture);
}

void Choose(const std::string& language) {
    ChooseLanguage(language.empty()   ? LanguageOfDesktop()
                   : language == "ja" ? Language::Japanese
                                      : Language::English);
}

} // namespace

int RunWithWindow(Front& front, int count, char** texts) {
    if (!HasDesktop()) {
        std::fprintf(stderr, "qd-k8-sim: --window wants a desktop, and there is none\n");
        return 1;
    }
    HoldSignals();
    count = 1; // its options are none of the toolkit's
    QApplication application(count, texts);
    QApplication::setApplicationName("qd-k8-sim");
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setWindowIcon(DrawIcon());
    Choose(front.options.language);

    front.wake = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    Window window(front);
    int status = 1;
    std::thread service([&] {
        status = Serve(front);
        QMetaObject::invokeMethod(
            &window, [&window] { window.leave(); }, Qt::QueuedConnection);
    });
    window.showInCorner();
    QApplication::exec();
    GiveOrder(front, "quit");
    service.join();
    ::close(front.wake);
    return status;
}

} // namespace qdk8
